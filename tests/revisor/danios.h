// SPDX-License-Identifier: MIT
// Damage to be planted at random places of an archive that is whole. The tables of it, one for each
// group of rules, are in the sources of this folder.
#pragma once

#include "revisor/EscuelaDePrueba.h"
#include "revisor/Revision.h"

#include <QByteArray>
#include <QList>
#include <QRandomGenerator>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTest>

#include <array>
#include <chrono>
#include <functional>

namespace danios {

using namespace Qt::StringLiterals;

namespace fs = std::filesystem;

inline const std::array<QString, 4> deAlumno = {u"infoFinal"_s, u"certificados"_s, u"matriculas"_s,
                                                u"infoAlumnos"_s};
inline const std::array<QString, 3> conGuion = {u"infoFinal"_s, u"certificados"_s, u"matriculas"_s};
inline const std::array<QString, 3> deSalon = {u"salones"_s, u"consolidadoN"_s, u"consolidadoF"_s};

// What is expected of the review.
struct Blanco {
    QString archivo;
    QString idPersona{};
    QString idSalon{};
    QStringList tambien{}; // other files of which something may be said
};

// An archive to be damaged, and places in it.
struct Taller {
    const Escuela &escuela;
    fs::path carpeta;
    QRandomGenerator azar;

    template <typename Lista>
    const auto &uno(const Lista &lista)
    {
        return lista[static_cast<typename Lista::size_type>(
            azar.bounded(static_cast<int>(lista.size())))];
    }
    const AlumnoDemo &alumno() { return uno(escuela.alumnos); }
    const AlumnoDemo &conFoto()
    {
        for (;;) {
            if (const AlumnoDemo &a = alumno(); a.conFoto)
                return a;
        }
    }
    const SalonDemo &salon() { return uno(escuela.salones); }
    fs::path en(const QString &ruta) const { return carpeta / rutaDe(ruta); }
    QByteArray leer(const QString &ruta) const { return leido(en(ruta)); }
    void escribir(const QString &ruta, const QByteArray &bytes) const { escrito(en(ruta), bytes); }
    void borrar(const QString &ruta) const { QVERIFY(fs::remove(en(ruta))); }
    void cambiar(const QString &ruta, const QByteArray &antes, const QByteArray &despues) const
    {
        QByteArray bytes = leer(ruta);
        QVERIFY2(bytes.contains(antes), qPrintable(ruta));
        escribir(ruta, bytes.replace(bytes.indexOf(antes), antes.size(), despues));
    }
    // A page of a student, of one of these kinds.
    template <typename Carpetas>
    Blanco pagina(const Carpetas &carpetas)
    {
        const AlumnoDemo &a = alumno();
        return {u"archivos/"_s + uno(carpetas) + u'/' + a.id + u".html"_s, a.id};
    }
    Blanco paginaDeSalon()
    {
        const SalonDemo &s = salon();
        return {u"archivos/"_s + uno(deSalon) + u'/' + s.id + u".html"_s, {}, s.id};
    }
    Blanco foto()
    {
        const QString id = conFoto().id;
        return {u"archivos/fotos/"_s + id + u"-alumno.jpg"_s, id};
    }
    // A page with something more in it, where its own content ends.
    template <typename Carpetas>
    Blanco conMas(const Carpetas &carpetas, const QByteArray &html)
    {
        const Blanco b = pagina(carpetas);
        cambiar(b.archivo, "</body>", html + "</body>");
        return b;
    }
    // Time stamps as a download leaves them, one file after the other.
    void fechar(std::chrono::hours haceCuanto) const;
};

struct Danio {
    const char *nombre;
    reglas::Cual regla;
    std::function<Blanco(Taller &)> plantar;
    bool enLotes = false; // only in the archive that has print jobs
};

// Removes a file that is then the one that is missing.
Danio quitar(const char *nombre, reglas::Cual regla, const QString &ruta);

template <typename Carpetas>
Danio poner(const char *nombre, reglas::Cual regla, const Carpetas &carpetas,
            const QByteArray &contenido)
{
    return {nombre, regla, [carpetas, contenido](Taller &t) {
                const Blanco b = t.pagina(carpetas);
                t.escribir(b.archivo, contenido);
                return b;
            }};
}

template <typename Carpetas>
Danio agregar(const char *nombre, reglas::Cual regla, const Carpetas &carpetas,
              const QByteArray &html)
{
    return {nombre, regla, [carpetas, html](Taller &t) {
                return t.conMas(carpetas, html);
            }};
}

Danio configurar(const char *nombre, reglas::Cual regla,
                 const std::function<QByteArray(QByteArray)> &cambiar);

QByteArray conValor(QByteArray guion, const QByteArray &nombre, const QByteArray &valor);

Danio ponerImagen(const char *nombre, reglas::Cual regla, const QString &ruta,
                  const std::function<QByteArray(QByteArray)> &cambiar);

// In which step of a download a file comes, by its path in the archive.
int pasoDe(const QString &ruta);

// Makes a file older than the download.
void envejecer(const fs::path &ruta);

// A picture whose header says that it is so large.
QByteArray pngDe(int ancho, int alto);

extern const QByteArray guionDeDocumento;
extern const QByteArray paginaAusente;
extern const QByteArray mantenimiento;

// The tables.
QList<Danio> deGente();
QList<Danio> deEnlaces();
QList<Danio> dePaginas();
QList<Danio> deImagenes();
QList<Danio> deGuiones();
QList<Danio> deFechasYRestos();
QList<Danio> deEsteSistema();

// The rules for which no damage can be planted on this system.
QSet<int> imposiblesAqui();

} // namespace danios

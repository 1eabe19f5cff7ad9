// SPDX-License-Identifier: MIT
// Real downloads that went wrong: the program before a service that fails now and then, in every
// way that a reply can, and downloads that were ended in the middle. What the review says is
// missing or damaged is what the service did not deliver, neither more nor less.
#include "revisor/EscuelaDePrueba.h"
#include "revisor/Revision.h"
#include "revisor/destinos.h"

#include <QHash>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <stdexcept>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

enum class Falla { Ninguna, Cae, Vacia, Estado, Palabra, Otra, Mitad };

QByteArray sinAzar(QByteArray destino)
{
    const qsizetype lugar = destino.indexOf("?azar=");
    if (lugar < 0)
        return destino;
    const qsizetype fin = destino.indexOf('&', lugar);
    return destino.first(lugar) + (fin < 0 ? QByteArray() : destino.mid(fin));
}

bool carpetaLaTiene(const fs::path &carpeta, const QString &archivo)
{
    return fs::exists(carpeta / rutaDe(archivo));
}

// Of a label or a photo nothing can be known when no page that has come shows it.
QSet<QString> conocibles(const QSet<QString> &archivos, const fs::path &carpeta)
{
    QByteArray paginas;
    for (const auto &una : fs::recursive_directory_iterator(carpeta)) {
        if (una.path().extension() == ".html")
            paginas += leido(una.path()).replace('\\', '/');
    }
    QSet<QString> resultado;
    for (const QString &archivo : archivos) {
        const QString nombre = archivo.section(u"archivos/"_s, -1);
        const bool porFuera = nombre.startsWith(u"fotos/"_s) || nombre.contains(u"/labels/"_s);
        if (!porFuera || carpetaLaTiene(carpeta, archivo) || paginas.contains(nombre.toLatin1()))
            resultado.insert(archivo);
    }
    return resultado;
}

class ServicioQueFalla {
public:
    ServicioQueFalla(quint32 semilla, int deCien, demo::Rutas &rutas)
        : m_semilla(semilla), m_deCien(deCien), m_rutas(rutas)
    {
    }

    QSet<QString> noLlegaron;

    std::optional<std::optional<QByteArray>> responder(const QByteArray &destinoConAzar)
    {
        const QByteArray destino = sinAzar(destinoConAzar);
        const QString archivo = destinoEnArchivo(destinoConAzar);
        const Falla falla = archivo.isEmpty() ? Falla::Ninguna : fallaDe(destino);
        if (falla == Falla::Ninguna) {
            // A subject and an area of one name have one label, asked for twice: the last counts.
            if (destino.startsWith("/imgTXT.php"))
                noLlegaron.remove(archivo);
            return std::nullopt;
        }
        const QByteArray entera = m_rutas.responder(destinoConAzar).cuerpo;
        // A picture that is not there fails by itself; a value of half its length is a value.
        const bool esExiste = destino.contains("existe.php");
        if (esExiste && entera == "NO")
            return std::nullopt;
        const bool esValor = destino.contains("tomarValor");
        if ((esValor || esExiste) && falla == Falla::Mitad)
            return std::nullopt;
        noLlegaron.insert(archivo);
        switch (falla) {
        case Falla::Vacia:
            return std::optional(QByteArray());
        case Falla::Estado:
            if (destino.startsWith("/images/") || destino.startsWith("/jup/"))
                break; // a file download takes none
            return std::optional(QByteArray("<h1>Error 500</h1>"));
        case Falla::Palabra:
            return std::optional(QByteArray("ERROR"));
        case Falla::Otra:
            return std::optional(
                QByteArray("<html><body><p>Estamos mejorando para usted.</p></body></html>"));
        case Falla::Mitad:
            return std::optional(entera.left(entera.size() / 2));
        default:
            break;
        }
        return std::optional<QByteArray>();
    }

private:
    // The same at every try of one request.
    Falla fallaDe(const QByteArray &destino) const
    {
        QRandomGenerator azar(m_semilla ^ quint32(qHash(destino, 7)));
        if (int(azar.bounded(100)) >= m_deCien)
            return Falla::Ninguna;
        return static_cast<Falla>(1 + azar.bounded(6));
    }

    quint32 m_semilla;
    int m_deCien;
    demo::Rutas &m_rutas;
};

} // namespace

class tst_interrumpidas : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void servicioQueFalla_seDiceTodoYSoloEso_data()
    {
        QTest::addColumn<int>("deCien");
        for (const int deCien : {1, 5, 10, 20, 35})
            QTest::addRow("%d of 100", deCien) << deCien;
    }
    void servicioQueFalla_seDiceTodoYSoloEso()
    {
        QFETCH(int, deCien);
        bool dada = false;
        const int semilla = qEnvironmentVariableIntValue("PARVANEL_REVISOR_SEMILLA", &dada);
        const quint32 desde = dada ? quint32(semilla) : 20101U;
        for (quint32 vez = desde; vez < desde + 4; ++vez) {
            EscuelaDePrueba escuela(generarEscuela({vez, 4, 6, 6}));
            demo::Rutas rutas(escuela.escuela, u"https://servicio.parvanel.example"_s);
            ServicioQueFalla servicio(vez, deCien, rutas);
            const QTemporaryDir personal;
            const fs::path carpeta =
                escuela.descargar(personal.path(), [&](const QByteArray &destino) {
                    return servicio.responder(destino);
                });
            const Resultado resultado = revisar(carpeta);
            const QSet<QString> halladas = dichos(resultado);
            const QSet<QString> debidas = conocibles(servicio.noLlegaron, carpeta);
            QVERIFY(deCien < 5 || debidas.size() * 2 > servicio.noLlegaron.size());
            QVERIFY2(primeros(debidas, halladas).isEmpty(),
                     qPrintable(u"seed %1, not found: "_s.arg(vez) + primeros(debidas, halladas)));
            QVERIFY2(primeros(halladas, servicio.noLlegaron).isEmpty(),
                     qPrintable(u"seed %1, false: "_s.arg(vez)
                                + primeros(halladas, servicio.noLlegaron)));
        }
    }

    // The classrooms' pages have come, so that every student is known; then it ends, anywhere.
    void descargaMuerta_pideTodoLoQueFalta()
    {
        for (int vez = 0; vez < 8; ++vez) {
            EscuelaDePrueba escuela(generarEscuela({2010, 3, 5, 4}));
            const QTemporaryDir personal;
            QSet<QString> llegaron;
            int quedan = 8 + QRandomGenerator(quint32(vez)).bounded(55);
            bool conSalones = false;
            const auto contar =
                [&](const QByteArray &destino) -> std::optional<std::optional<QByteArray>> {
                conSalones = conSalones || destino.contains("/consolidado/");
                if (conSalones && --quedan < 0)
                    throw std::runtime_error("the program has been ended");
                llegaron.insert(destinoEnArchivo(destino));
                return std::nullopt;
            };
            bool muerta = false;
            try {
                [[maybe_unused]] const fs::path carpeta =
                    escuela.descargar(personal.path(), contar);
            } catch (const std::runtime_error &) {
                muerta = true;
            }
            QVERIFY(muerta);
            QSet<QString> esperados;
            for (const AlumnoDemo &a : escuela.escuela.alumnos) {
                for (const QString &c :
                     {u"infoFinal"_s, u"certificados"_s, u"matriculas"_s, u"infoAlumnos"_s})
                    esperados.insert(u"archivos/%1/%2.html"_s.arg(c, a.id));
            }
            for (const SalonDemo &s : escuela.escuela.salones) {
                for (const QString &c : {u"salones"_s, u"consolidadoN"_s, u"consolidadoF"_s})
                    esperados.insert(u"archivos/%1/%2.html"_s.arg(c, s.id));
            }
            QSet<QString> pedidos;
            const Resultado resultado = revisar(rutaDe(personal.path()) / "Quorvela/123-2010");
            for (const Hallazgo &h : resultado.hallazgos) {
                if (h.regla == &reglas::todas[reglas::FaltaDocumento]
                    || h.regla == &reglas::todas[reglas::FaltaSalon])
                    pedidos.insert(h.archivo);
            }
            QCOMPARE(resultado.veredicto, Veredicto::FaltanDocumentos);
            QVERIFY(!pedidos.isEmpty());
            QCOMPARE(pedidos, esperados.subtract(llegaron));
        }
    }
};

QTEST_MAIN(tst_interrumpidas)
#include "tst_interrumpidas.moc"

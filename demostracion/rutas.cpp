// SPDX-License-Identifier: MIT
#include "demostracion/rutas.h"

#include "demostracion/calificaciones.h"
#include "demostracion/consultas.h"
#include "demostracion/paginas.h"
#include "demostracion/rotulo.h"
#include "demostracion/windows1252.h"

#include <QDir>
#include <QFile>
#include <QMutexLocker>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

using namespace demo;

QString decodificado(QByteArray bytes, bool masEsBlanco)
{
    if (masEsBlanco)
        bytes.replace('+', ' ');
    return deWindows1252(QByteArray::fromPercentEncoding(bytes));
}

Parametros parametrosDe(const QByteArray &consulta)
{
    Parametros parametros;
    for (const QByteArray &par : consulta.split('&')) {
        const qsizetype igual = par.indexOf('=');
        if (igual > 0)
            parametros.append(
                {decodificado(par.left(igual), true), decodificado(par.mid(igual + 1), true)});
    }
    return parametros;
}

Respuesta escrita(const QString &texto)
{
    Respuesta respuesta;
    respuesta.cuerpo = aWindows1252(texto);
    return respuesta;
}

Respuesta ausente()
{
    Respuesta respuesta = escrita(paginaAusente());
    respuesta.estado = 404;
    return respuesta;
}

// A dozen faces do for all students.
QString retrato(const AlumnoDemo &alumno)
{
    return u":/demo/retratos/%1%2.jpg"_s.arg(alumno.mujer ? u"alumna"_s : u"alumno"_s)
        .arg(1 + alumno.documento.toUInt() % 6);
}

QByteArray tipoDe(const QString &nombre)
{
    return nombre.endsWith(".jpg"_L1)   ? "image/jpeg"
           : nombre.endsWith(".gif"_L1) ? "image/gif"
           : nombre.endsWith(".js"_L1)  ? "application/javascript"
                                        : "image/png";
}

// The documents of one student: first segments of the address, layout, and what draws it up.
struct DocumentoAlumno {
    QStringView familia;
    QStringView clase;
    QString (*pagina)(const Contexto &, const AlumnoDemo &) = nullptr;
};

template <int n>
QString unInforme(const Contexto &c, const AlumnoDemo &a)
{
    return informeFinal(c, a, n);
}
template <int n>
QString unCertificado(const Contexto &c, const AlumnoDemo &a)
{
    return certificado(c, a, n);
}

const DocumentoAlumno documentosAlumno[] = {{u"salones", u"infoFinal", unInforme<1>},
                                            {u"salones", u"infoFinal2", unInforme<2>},
                                            {u"salones", u"certificado", unCertificado<1>},
                                            {u"salones", u"certificado2", unCertificado<2>},
                                            {u"salones", u"certificado3", unCertificado<3>},
                                            {u"alumnos", u"hojaMatricula", hojaMatricula},
                                            {u"alumnos", u"pazYsalvo", pazYsalvo},
                                            {u"anotador", u"reporte", observador}};

} // namespace

namespace demo {

QString parametro(const Parametros &parametros, const QString &nombre)
{
    for (const auto &[clave, valor] : parametros)
        if (clave == nombre)
            return valor;
    return {};
}

Rutas::Rutas(const Escuela &escuela, const QString &base) : m_escuela(escuela), m_base(base) {}

Respuesta Rutas::responder(const QByteArray &destino)
{
    const qsizetype pregunta = destino.indexOf('?');
    const bool sinConsulta = pregunta < 0;
    const QString ruta = decodificado(sinConsulta ? destino : destino.left(pregunta), false);
    const Parametros parametros =
        sinConsulta ? Parametros() : parametrosDe(destino.mid(pregunta + 1));
    const QStringList tramos = ruta.split(u'/');
    if (ruta.startsWith("/querys/tessarin/"_L1))
        return consulta(ruta.mid(17), parametros);
    if (ruta == "/imgTXT.php"_L1)
        return rotulo(parametro(parametros, u"txt"_s));
    if (ruta.startsWith("/jscript/"_L1) || ruta.startsWith("/images/"_L1)
        || ruta.startsWith("/jup/images/"_L1))
        return archivo(ruta);
    return documento(tramos);
}

Respuesta Rutas::consulta(const QString &pagina, const Parametros &parametros) const
{
    const auto valor = [&](const QString &nombre) {
        return parametro(parametros, nombre);
    };
    if (pagina == "login.php"_L1)
        return escrita(entrada(m_escuela, valor(u"user"_s), valor(u"pwd"_s)));
    if (pagina == "existe.php"_L1)
        return escrita(existe(valor(u"f"_s)) ? u"SI"_s : u"NO"_s);
    if (valor(u"idcolegio"_s) != m_escuela.idColegio)
        return ausente();

    const Contexto contexto{m_escuela, m_base};
    const bool matriz = valor(u"tipo"_s) == "matrix"_L1;
    const SalonDemo *salon = buscarSalon(m_escuela, valor(u"salon"_s));
    if (pagina == "tomarValor.php"_L1)
        return escrita(m_escuela.ajustes.value(valor(u"campo"_s)));
    if (pagina == "salones.php"_L1)
        return escrita(matriz ? matrizSalones(m_escuela) : indiceSalones(contexto));
    if (pagina == "alumnos.php"_L1 && matriz)
        return escrita(matrizAlumnos(m_escuela, valor(u"salon"_s)));
    if (pagina == "alumnos.php"_L1 && salon)
        return escrita(listaSalon(contexto, *salon));
    if (pagina == "materias.php"_L1)
        return escrita(matrizMaterias(m_escuela));
    if (pagina == "asignaturas.php"_L1 && salon)
        return escrita(matrizAsignaturas(m_escuela, *salon));
    if (pagina == "infoAlumno.php"_L1)
        if (const AlumnoDemo *alumno = buscarAlumno(m_escuela, valor(u"idalumno"_s)))
            return escrita(infoAlumno(contexto, *alumno));
    return ausente();
}

// "/family/123/2010/kind/code/...": the rest of an address (period, random number) is only read
// where a document needs it. The school has one year of documents.
Respuesta Rutas::documento(const QStringList &tramos) const
{
    if (tramos.size() < 6 || tramos.at(2) != m_escuela.idColegio || tramos.at(3) != "2010"_L1)
        return ausente();
    const Contexto contexto{m_escuela, m_base};
    const QString &familia = tramos.at(1);
    const QString &clase = tramos.at(4);
    const QString &codigo = tramos.at(5);
    if (const AlumnoDemo *alumno = buscarAlumno(m_escuela, codigo)) {
        for (const DocumentoAlumno &uno : documentosAlumno)
            if (familia == uno.familia && clase == uno.clase)
                return escrita(uno.pagina(contexto, *alumno));
        const int periodo = tramos.value(6).toInt();
        if (familia == "salones"_L1 && periodo >= 1 && periodo <= 4
            && (clase == "boletin"_L1 || clase == "boletin2"_L1))
            return escrita(boletin(contexto, *alumno, periodo, clase == "boletin2"_L1 ? 2 : 1));
    }
    if (familia != "notas"_L1)
        return ausente();
    if (const SalonDemo *salon = buscarSalon(m_escuela, codigo)) {
        if (clase == "consolidado"_L1)
            return escrita(consolidadoNotas(contexto, *salon));
        if (clase == "consolidadof"_L1)
            return escrita(consolidadoFallas(contexto, *salon));
    }
    if (const AsignaturaDemo una = buscarAsignatura(m_escuela, codigo);
        una.salon && clase == "planillaAsignatura"_L1)
        return escrita(planillaAsignatura(contexto, *una.salon, una.materia));
    return ausente();
}

const AlumnoDemo *Rutas::alumnoDeFoto(const QString &ruta) const
{
    const QString inicio = u"/jup/images/"_s + m_escuela.idColegio + u'/';
    const QString fin = u"-alumno.jpg"_s;
    if (!ruta.startsWith(inicio) || !ruta.endsWith(fin))
        return nullptr;
    const AlumnoDemo *alumno = buscarAlumno(m_escuela, ruta.mid(inicio.size()).chopped(fin.size()));
    return alumno && alumno->conFoto ? alumno : nullptr;
}

bool Rutas::existe(const QString &direccion) const
{
    return direccion.startsWith(m_base) && alumnoDeFoto(direccion.mid(m_base.size()));
}

// Labels are drawn once and kept.
Respuesta Rutas::rotulo(const QString &texto)
{
    // One at a time: the threads share the fonts.
    const QMutexLocker guardia(&m_cerrojo);
    QByteArray &bytes = m_dibujados[texto];
    if (bytes.isEmpty())
        bytes = dibujarRotulo(texto);
    return {200, "image/png", bytes};
}

Respuesta Rutas::archivo(const QString &ruta) const
{
    const AlumnoDemo *alumno = alumnoDeFoto(ruta);
    // A path that is not in its plainest form may lead out of the folder.
    const QString nombre = alumno                          ? retrato(*alumno)
                           : QDir::cleanPath(ruta) == ruta ? u":/demo/servido"_s + ruta
                                                           : QString();
    QFile archivo(nombre);
    if (nombre.isEmpty() || !archivo.open(QIODevice::ReadOnly))
        return ausente();
    return {200, tipoDe(ruta), archivo.readAll()};
}

} // namespace demo

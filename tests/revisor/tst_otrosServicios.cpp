// SPDX-License-Identifier: MIT
// Archives that nothing happened to, of services whose pages are made otherwise than those of the
// demonstration, and folders as computers leave them: not one finding that is no remark.
#include "platform/codepage.h"
#include "revisor/EscuelaDePrueba.h"
#include "revisor/Revision.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

// What becomes of a page; its path is given from the archive on.
using Cambio = std::function<QByteArray(QByteArray, const QString &)>;

void cambiarPaginas(const fs::path &carpeta, const Cambio &cambio)
{
    std::vector<fs::path> paginas; // first all, since writing changes what is walked through
    for (const auto &una : fs::recursive_directory_iterator(carpeta)) {
        if (una.is_regular_file() && una.path().extension() == ".html")
            paginas.push_back(una.path());
    }
    for (const fs::path &una : paginas)
        escrito(una, cambio(leido(una), textoDe(fs::relative(una, carpeta))));
}

// The same at the end of every page, with the page's own id where %1 stands.
Cambio conMas(const QByteArray &html)
{
    return [html](QByteArray pagina, const QString &ruta) {
        QByteArray propio = html;
        propio.replace("%1", textoDe(rutaDe(ruta).stem()).toUtf8());
        return pagina.replace("</body>", propio + "</body>");
    };
}

QStringList hallados(const Resultado &resultado)
{
    QStringList lineas;
    for (const Hallazgo &h : resultado.hallazgos) {
        if (h.regla->gravedad != Gravedad::Nota)
            lineas.append(h.regla->nombre.toString() + u' ' + h.archivo + u' ' + h.detalle);
    }
    return lineas.mid(0, 20);
}

int cuantos(const Resultado &resultado, reglas::Cual regla)
{
    return static_cast<int>(
        std::count_if(resultado.hallazgos.begin(), resultado.hallazgos.end(),
                      [&](const Hallazgo &h) { return h.regla == &reglas::todas[regla]; }));
}

} // namespace

class tst_otrosServicios : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<EscuelaDePrueba> m_escuela;
    QTemporaryDir m_personal;
    fs::path m_original;
    std::unique_ptr<QTemporaryDir> m_otra;
    fs::path m_carpeta;

private Q_SLOTS:
    void initTestCase()
    {
        m_escuela = std::make_unique<EscuelaDePrueba>(generarEscuela({2010, 3, 4, 5}));
        m_original = m_escuela->descargar(m_personal.path());
    }

    void init()
    {
        m_otra = std::make_unique<QTemporaryDir>();
        m_carpeta = rutaDe(m_otra->path()) / "123-2010";
        fs::copy(m_original, m_carpeta,
                 fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    }

    void paginasDeOtraHechura_sonCompletas_data()
    {
        QTest::addColumn<Cambio>("cambio");
        const auto sin = [](const QByteArray &que, const QByteArray &enSuLugar = {}) {
            return [=](QByteArray pagina, const QString &) {
                return pagina.replace(que, enSuLugar);
            };
        };
        QTest::newRow("no end tag") << Cambio(sin("</html>"));
        QTest::newRow("comment after the end")
            << Cambio(sin("</html>", "</html>\r\n<!-- hecha en 0,02 s -->"));
        QTest::newRow("script after the end")
            << Cambio(sin("</html>", "</html>\n<script>contar()</script>"));
        QTest::newRow("menu of the service")
            << conMas("<a href='/index.php'>Inicio</a><img src='/images/x.png'>");
        QTest::newRow("addresses of each student's own")
            << conMas("<a href='/alumnos/%1/editar/'>x</a><a href='editar%1.php?x=1'>y</a>");
        QTest::newRow("style and script of the service's own") << conMas(
            "<link rel=stylesheet href=estilo.css><script src='../../js/menu.js'></script>");
        QTest::newRow("address without scheme")
            << conMas("<script src='//ajax.example/jq.js'></script>");
        QTest::newRow("attributes that are no address")
            << conMas("<div data=1001>x</div><table background=white><tr><td>x</table>");
        QTest::newRow("addresses that are none")
            << conMas("<a href='#'>a</a><a href=''>b</a><a href='JavaScript:void(0)'>c</a><img>"
                      "<a href='tel:+57'>d</a><a href='mailto:a@b.c'>e</a><img src=''><a "
                      "href='data:text/html,x'>f</a><iframe src='about:blank'></iframe>");
        QTest::newRow("image of the school that no download fetches")
            << conMas("<img src='..\\..\\archivos\\images\\coordinacion.png'>");
    }
    void paginasDeOtraHechura_sonCompletas()
    {
        QFETCH(Cambio, cambio);
        cambiarPaginas(m_carpeta, cambio);
        const Resultado resultado = revisar(m_carpeta);
        QCOMPARE(hallados(resultado), QStringList());
        QCOMPARE(resultado.veredicto, Veredicto::Completo);
    }

    void enlacesDelServicio_sonUnaNotaPorClase()
    {
        cambiarPaginas(m_carpeta, conMas("<a href='/alumnos/%1/'>x</a><a href='salir.php'>x</a>"));
        const Resultado resultado = revisar(m_carpeta);
        QCOMPARE(cuantos(resultado, reglas::EnlaceDelServicio),
                 8); // front page, 3 of classrooms, 4
        QCOMPARE(resultado.personasConFaltas, 0);
    }

    // Beside what all its siblings have, a link of one page that leads nowhere is found.
    void enlaceRotoEntreOtros_seHalla()
    {
        cambiarPaginas(m_carpeta, conMas("<a href='/alumnos/%1/'>x</a><a href='salir.php'>x</a>"));
        const QString ruta =
            u"archivos/infoFinal/"_s + m_escuela->escuela.alumnos[0].id + u".html"_s;
        const fs::path una = m_carpeta / rutaDe(ruta);
        escrito(una, leido(una).replace("</body>", "<img src='../otros/x.png'></body>"));
        const Resultado resultado = revisar(m_carpeta);
        QCOMPARE(hallados(resultado),
                 QStringList{u"enlace-roto "_s + ruta + u" archivos/otros/x.png"_s});
    }

    // What a Mac writes on a stick beside every file, and what other programs do.
    void restosDeOtrosProgramas_noSonDocumentos()
    {
        std::vector<fs::path> todos;
        for (const auto &una : fs::recursive_directory_iterator(m_carpeta)) {
            if (una.is_regular_file())
                todos.push_back(una.path());
        }
        for (const fs::path &una : todos)
            escrito(una.parent_path() / rutaDe(u"._"_s + textoDe(una.filename())),
                    QByteArray("\0\5\x16\7\0\2\0\0Mac OS X", 16) + QByteArray(60, '\0'));
        const fs::path archivos = m_carpeta / "archivos";
        for (const char *nombre : {"fotos/LEAME.txt", "fotos/lista.xlsx", "fotos/.picasa.ini",
                                   "images/.nomedia", "images/logo.psd", "images/labels/Thumbs.db",
                                   "images/labels/.directory", "salones/desktop.ini"})
            escrito(archivos / nombre, "x");
        const Resultado resultado = revisar(m_carpeta);
        QCOMPARE(hallados(resultado), QStringList());
        QCOMPARE(resultado.personas, int(m_escuela->escuela.alumnos.size()));
        QVERIFY(cuantos(resultado, reglas::ArchivoAjeno) > 0);
    }

    void copiasDeUnDocumento_noSonDeNadie_data()
    {
        QTest::addColumn<QString>("nombre");
        for (const char *nombre :
             {"%1 - copia", "%1 - copia (2)", "Copia de %1", "Copia (2) de %1", "%1 (1)", "%1(1)",
              "%1 - Copy", "%1.sync-conflict-20240131-101500-ABCDEF7",
              "%1 (copia en conflicto de SECRETARIA 2024-01-31)"})
            QTest::newRow(nombre) << QString::fromLatin1(nombre);
    }
    void copiasDeUnDocumento_noSonDeNadie()
    {
        QFETCH(QString, nombre);
        const fs::path archivos = m_carpeta / "archivos";
        const QString alumno = m_escuela->escuela.alumnos[0].id;
        const QString salon = m_escuela->escuela.salones[0].id;
        fs::copy(archivos / "infoFinal" / rutaDe(alumno + u".html"_s),
                 archivos / "infoFinal" / rutaDe(nombre.arg(alumno) + u".html"_s));
        fs::copy(archivos / "salones" / rutaDe(salon + u".html"_s),
                 archivos / "salones" / rutaDe(nombre.arg(salon) + u".html"_s));
        const Resultado resultado = revisar(m_carpeta);
        QCOMPARE(hallados(resultado), QStringList());
        QCOMPARE(resultado.personas, int(m_escuela->escuela.alumnos.size()));
        QCOMPARE(cuantos(resultado, reglas::ArchivoAjeno), 2);
    }

    // A name like a copy's of nobody else is a name.
    void idComoDeCopia_esDeAlguien()
    {
        escrito(m_carpeta / "archivos/infoFinal/77 (1).html", "<html><body><p>x</p></body></html>");
        const Resultado resultado = revisar(m_carpeta);
        QCOMPARE(resultado.personas, int(m_escuela->escuela.alumnos.size()) + 1);
    }

    // Two ids of one name: their certificates do not tell them apart.
    void inscritoDosVeces_noEsPaginaAjena()
    {
        const AlumnoDemo &uno = m_escuela->escuela.alumnos[0];
        const AlumnoDemo &otro = m_escuela->escuela.alumnos[1];
        const auto certificado = [&](const AlumnoDemo &a) {
            return m_carpeta / "archivos/certificados" / rutaDe(a.id + u".html"_s);
        };
        escrito(certificado(uno), leido(certificado(uno)).replace(uno.id.toLatin1(), ""));
        escrito(certificado(otro), leido(certificado(uno)));
        const Resultado ajena = revisar(m_carpeta);
        QCOMPARE(cuantos(ajena, reglas::PaginaAjena), 1);
        cambiarPaginas(m_carpeta, [&](QByteArray pagina, const QString &) {
            return pagina.replace(codepage::aBytes(otro.nombre), codepage::aBytes(uno.nombre));
        });
        QCOMPARE(hallados(revisar(m_carpeta)), QStringList());
    }

    // No page is said to be like itself.
    void paginaDeDos_nombraALaOtra()
    {
        const AlumnoDemo &uno = m_escuela->escuela.alumnos[0];
        const AlumnoDemo &otro = m_escuela->escuela.alumnos[1];
        const QString ruta = u"archivos/certificados/%1.html"_s;
        QByteArray pagina = leido(m_carpeta / rutaDe(ruta.arg(uno.id)));
        pagina.replace("</body>", "<p>" + otro.id.toLatin1() + "</p></body>");
        for (const AlumnoDemo *a : {&uno, &otro})
            escrito(m_carpeta / rutaDe(ruta.arg(a->id)), pagina);
        for (const Hallazgo &h : revisar(m_carpeta).hallazgos)
            QVERIFY2(!h.detalle.contains(h.archivo), qPrintable(h.detalle));
    }

    void unDatoRoto_esUnSoloHallazgo_data()
    {
        QTest::addColumn<QByteArray>("valor");
        QTest::newRow("quote") << QByteArray("Ana \"la\" Paz");
        QTest::newRow("backslash at the end") << QByteArray("Ana\\");
        QTest::newRow("two lines") << QByteArray("Ana\r\nPaz");
        QTest::newRow("line end at the end") << QByteArray("Ana\n");
    }
    void unDatoRoto_esUnSoloHallazgo()
    {
        QFETCH(QByteArray, valor);
        const fs::path ruta = m_carpeta / "configuracion.txt";
        QByteArray guion = leido(ruta);
        const qsizetype desde = guion.indexOf("var direccion = \"") + 17;
        guion.replace(desde, guion.indexOf("\";\r\n", desde) - desde, valor);
        escrito(ruta, guion);
        QCOMPARE(hallados(revisar(m_carpeta)),
                 QStringList{u"ajuste-roto configuracion.txt direccion"_s});
    }

    void otraCosaEnLugarDeLosDatos_esUnSoloHallazgo()
    {
        escrito(m_carpeta / "configuracion.txt", "<html><h1>Error 500</h1></html>\r\n");
        QCOMPARE(hallados(revisar(m_carpeta)),
                 QStringList{u"configuracion-no-corre configuracion.txt "_s});
    }

    // Of one page it is damage all the same.
    void paginaSinFinEntreOtras_esCortada()
    {
        const fs::path una = m_carpeta / "archivos/infoFinal"
                             / rutaDe(m_escuela->escuela.alumnos[0].id + u".html"_s);
        escrito(una, leido(una).replace("</html>", ""));
        QCOMPARE(cuantos(revisar(m_carpeta), reglas::PaginaCortada), 1);
    }
};

QTEST_MAIN(tst_otrosServicios)
#include "tst_otrosServicios.moc"

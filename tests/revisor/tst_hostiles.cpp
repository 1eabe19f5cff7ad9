// SPDX-License-Identifier: MIT
// Archives that mean harm, and disks that fail: each gives a finding or a refusal. What is asked of
// all of them is that the review comes back.
#include "Pequeno.h"

#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

const QString laPagina = u"archivos/infoAlumnos/1.html"_s;

} // namespace

class tst_hostiles : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pagina_siempreVuelve_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("regla");
        const QByteArray inicio = "<html><body>";
        QTest::newRow("10 MB of text") << inicio + QByteArray("hola ").repeated(2'000'000) << u""_s;
        QTest::newRow("10 MB of a row")
            << inicio + "<table>" + QByteArray("<tr><td>1<td>2").repeated(700'000) << u""_s;
        QTest::newRow("100,000 links")
            << inicio + QByteArray("<a href='../x/y.html'>x</a>").repeated(100'000)
            << u"enlace-roto"_s;
        QTest::newRow("100,000 deep")
            << inicio + QByteArray("<div>").repeated(100'000) << u"pagina-enredada"_s;
        QTest::newRow("100,000 lists deep")
            << inicio + QByteArray("<ul><li>").repeated(100'000) << u"pagina-enredada"_s;
        QTest::newRow("100,000 fonts deep")
            << inicio + QByteArray("<font color=red>").repeated(100'000) << u"pagina-enredada"_s;
        QTest::newRow("15,000 deep") << inicio + QByteArray("<div>").repeated(15'000) << u""_s;
        QTest::newRow("crossed formats")
            << inicio + QByteArray("<b><i><p></b></i>").repeated(3'000) << u""_s;
        QTest::newRow("quotes that never end")
            << inicio + QByteArray("<a href=\"x <b title='").repeated(50'000) << u""_s;
        QTest::newRow("comments that never end")
            << inicio + QByteArray("<!-- <!").repeated(200'000) << u""_s;
        QTest::newRow("style that never ends")
            << inicio + "<style>" + QByteArray("url( url('\\").repeated(200'000) << u""_s;
        QTest::newRow("bytes of all kinds") << inicio + [] {
            QByteArray bytes;
            QRandomGenerator azar(7);
            for (int i = 0; i < 1'000'000; ++i)
                bytes.append(static_cast<char>(azar.bounded(256)));
            return bytes;
        }() << u""_s;
        QTest::newRow("a name looked for at each link")
            << inicio + "<table><tr><td>" + QByteArray("<b></b>").repeated(300'000) + "</td><td>"
                   + QByteArray("<a href=#></a><table><tr><td><a href=#></a></table>")
                         .repeated(40'000)
            << u""_s;
        QTest::newRow("links in links")
            << inicio + QByteArray("<a href=#><object>").repeated(9'900) << u""_s;
        QTest::newRow("addresses up and up")
            << inicio + "<a href='" + QByteArray("../").repeated(300'000) + "'>"
            << u"enlace-fuera"_s;
        QTest::newRow("addresses down and down")
            << inicio + "<a href='" + QByteArray("a/").repeated(300'000) + "'>" << u"enlace-roto"_s;
    }
    void pagina_siempreVuelve()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, regla);
        const Pequeno archivo;
        archivo.pagina(bytes);
        const QStringList reglas = archivo.reglasDe(laPagina);
        QVERIFY2(regla.isEmpty() || reglas.contains(regla), qPrintable(reglas.join(u' ')));
    }

    // Whatever an address is as long as, what is shown of it fits on a page.
    void direccionesLargas_noAlarganElInforme()
    {
        const Pequeno archivo;
        const QByteArray larga = QByteArray("x").repeated(2'000'000);
        archivo.pagina("<html><body><a href='" + larga + "'>x</a><a href='/" + larga
                       + "'>x</a><img src='../images/" + larga + "'><a href='../infoFinal/" + larga
                       + ".html'>x</a></body></html>");
        const Resultado resultado = revisar(archivo.carpetaDe());
        QVERIFY(resultado.cuantos(Gravedad::Danio) >= 2);
        for (const Hallazgo &h : resultado.hallazgos) {
            for (const QString &texto :
                 {h.archivo, h.detalle, h.idPersona, h.persona, h.idSalon, h.salon})
                QVERIFY2(texto.size() < 2000, qPrintable(h.regla->nombre.toString()));
        }
    }

    void configuracion_siempreVuelve_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("brackets") << QByteArray("[").repeated(1'000'000);
        QTest::newRow("loop without end") << QByteArray("var rector = \"a\"; while (true) {}\r\n");
        QTest::newRow("loop in a value")
            << QByteArray("var rector = \"a\" + (function() { while (true) {} })();\r\n");
        QTest::newRow("zeros") << QByteArray(1'000'000, '\0');
        QTest::newRow("long line")
            << QByteArray("var rector = \"") + QByteArray(10'000'000, 'x') + "\";\r\n";
        QTest::newRow("value of many lines")
            << QByteArray("var rector = \"") + QByteArray(5'000'000, '\n') + "\"x\r\n";
        QTest::newRow("many variables") << QByteArray("var rector = \"a\";\r\n").repeated(100'000);
    }
    void configuracion_siempreVuelve()
    {
        QFETCH(QByteArray, bytes);
        const Pequeno archivo;
        escrito(archivo.carpetaDe() / "configuracion.txt", bytes);
        QVERIFY(!archivo.reglasDe(u"configuracion.txt"_s).isEmpty());
    }

    void imagen_deMuchosPuntos_seRehusa()
    {
        const Pequeno archivo;
        // Black JPEG and GIF headers of 60,000 by 60,000.
        const QByteArray jpeg =
            QByteArray::fromHex("ffd8ffc0001108ea60ea6003012200021101031101ffd9");
        const QByteArray gif = QByteArray("GIF89a\x60\xEA\x60\xEA\x80\x00\x00", 13)
                               + QByteArray(6, '\0')
                               + QByteArray(",\0\0\0\0\x60\xEA\x60\xEA\0\x02\0;", 13);
        escrito(archivo.carpetaDe() / "archivos/fotos/1-alumno.jpg", jpeg);
        escrito(archivo.carpetaDe() / "archivos/fotos/2-alumno.jpg", gif);
        QVERIFY(!archivo.reglasDe(u"archivos/fotos/1-alumno.jpg"_s).isEmpty());
        QCOMPARE(archivo.reglasDe(u"archivos/fotos/2-alumno.jpg"_s),
                 QStringList{u"imagen-enorme"_s});
    }

    void archivosQueDesaparecen_sonHallazgos()
    {
        for (int vez = 0; vez < 5; ++vez) {
            const Pequeno archivo;
            for (int i = 0; i < 300; ++i)
                escrito(archivo.carpetaDe() / "archivos/infoAlumnos"
                            / (std::to_string(i) + ".html"),
                        "<html><body>" + QByteArray::number(i) + "</body></html>\r\n");
            std::atomic<bool> empezado = false;
            std::jthread borrador([&] {
                empezado = true;
                std::error_code enUso; // what is read at that moment may not be removed everywhere
                fs::remove_all(archivo.carpetaDe() / "archivos", enUso);
            });
            while (!empezado)
                std::this_thread::yield();
            const Resultado resultado = revisar(archivo.carpetaDe());
            QVERIFY(resultado.veredicto != Veredicto::Completo);
        }
    }

    void loQueNoEsUnHistorico_seDice()
    {
        const QTemporaryDir vacia;
        const fs::path ruta = rutaDe(vacia.path());
        QCOMPARE(revisar(ruta).veredicto, Veredicto::NoEsHistorico);
        escrito(ruta / "index.html", "<html></html>");
        QCOMPARE(revisar(ruta).veredicto, Veredicto::NoEsHistorico);
        QCOMPARE(revisar(ruta / "index.html").veredicto, Veredicto::NoSeLee);
        QCOMPARE(revisar(ruta / "nada").veredicto, Veredicto::NoSeLee);
        QCOMPARE(revisar({}).veredicto, Veredicto::NoSeLee);
    }

    void soloLotes_seDiceUnaVez()
    {
        EscuelaDePrueba escuela(generarEscuela({2010, 1, 4, 3}));
        const QTemporaryDir personal;
        escuela.imprimir(personal.path());
        const Resultado resultado = revisar(rutaDe(personal.path()) / "Quorvela/123-2010");
        QStringList faltas;
        for (const Hallazgo &h : resultado.hallazgos) {
            if (h.regla->gravedad != Gravedad::Nota)
                faltas.append(h.regla->nombre.toString());
        }
        QCOMPARE(faltas, QStringList{u"solo-impresiones"_s});
        QCOMPARE(resultado.veredicto, Veredicto::FaltanDocumentos);
    }

    void detener_noDiceNada()
    {
        EscuelaDePrueba escuela(generarEscuela({2010, 1, 4, 3}));
        const QTemporaryDir personal;
        const fs::path carpeta = escuela.descargar(personal.path());
        std::stop_source parar;
        const Resultado resultado = revisar(
            carpeta, [&](std::size_t, std::size_t) { parar.request_stop(); }, parar.get_token());
        QCOMPARE(resultado.veredicto, Veredicto::Detenida);
        QVERIFY(resultado.hallazgos.isEmpty());
    }

    void avance_llegaAlFinal()
    {
        EscuelaDePrueba escuela(generarEscuela({2010, 1, 4, 3}));
        const QTemporaryDir personal;
        const fs::path carpeta = escuela.descargar(personal.path());
        std::size_t ultimo = 0;
        std::size_t todos = 0;
        bool crece = true;
        const Resultado resultado = revisar(carpeta, [&](std::size_t hechos, std::size_t total) {
            crece = crece && hechos >= ultimo;
            ultimo = hechos;
            todos = total;
        });
        QVERIFY(crece);
        QCOMPARE(ultimo, todos);
        QCOMPARE(int(todos), resultado.archivos);
    }

    // Nothing is written, not even a time stamp.
    void revisar_noCambiaNada()
    {
        EscuelaDePrueba escuela(generarEscuela({2010, 1, 4, 3}));
        const QTemporaryDir personal;
        const fs::path carpeta = escuela.descargar(personal.path());
        const auto foto = [&] {
            QStringList lineas;
            for (const auto &una : fs::recursive_directory_iterator(carpeta))
                lineas.append(textoDe(una.path()) + u' '
                              + QString::number(una.last_write_time().time_since_epoch().count())
                              + u' '
                              + QString::number(una.is_regular_file() ? una.file_size() : 0));
            lineas.sort();
            return lineas;
        };
        const QStringList antes = foto();
        const Resultado resultado = revisar(carpeta);
        QCOMPARE(resultado.veredicto, Veredicto::Completo);
        QCOMPARE(foto(), antes);
    }
};

QTEST_MAIN(tst_hostiles)
#include "tst_hostiles.moc"

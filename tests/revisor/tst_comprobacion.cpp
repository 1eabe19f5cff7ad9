// SPDX-License-Identifier: MIT
// Proving a copy: what has become of it is named, and what would mislead its reader is refused.
#include "HistoricoDePrueba.h"
#include "ZipHostil.h"

#include <QCryptographicHash>
#include <QTest>

using namespace Qt::StringLiterals;
using copia::Comprobacion;
using copia::Diferencia;
using Clase = Diferencia::Clase;
using Veredicto = Comprobacion::Veredicto;

class tst_comprobacion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void recienGuardada_intacta();
    void carpetaSacada_intacta_data();
    void carpetaSacada_intacta();
    void carpetaCambiada_seDiceQue_data();
    void carpetaCambiada_seDiceQue();
    void sinLoPropio_faltaLoNecesario();
    void cadaByteDelZip_niFallaNiMiente();
    void zipCortado_noSeLee();
    void otraCosa_noEsCopia_data();
    void otraCosa_noEsCopia();
    void zipHostil_rechazado_data();
    void zipHostil_rechazado();
    void documentosQueCompartenBytes_rechazados();
    void detenida_seDice();
};

namespace {

Comprobacion comprobar(const std::filesystem::path &ruta)
{
    return copia::comprobar(ruta, {}, {});
}

QByteArray suma(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

} // namespace

void tst_comprobacion::recienGuardada_intacta()
{
    const HistoricoDePrueba historico;
    const copia::Guardada guardada = historico.guardar();
    qint64 ultimo = 0;
    qint64 fin = -1;
    const Comprobacion comprobacion = copia::comprobar(historico.zip(),
                                                       [&](qint64 hechos, qint64 total) {
                                                           ultimo = hechos;
                                                           fin = total;
                                                       },
                                                       {});
    QCOMPARE(comprobacion.texto, u"La copia está intacta: 8 archivos, tal como se guardaron."_s);
    QCOMPARE(comprobacion.veredicto, Veredicto::Intacta);
    QCOMPARE(comprobacion.archivos, 8);
    QCOMPARE(comprobacion.bytes, guardada.bytes);
    QCOMPARE(ultimo, fin);
}

void tst_comprobacion::carpetaSacada_intacta_data()
{
    QTest::addColumn<bool>("laDeEncima");
    QTest::newRow("la de la copia") << false;
    QTest::newRow("la de encima") << true;
}

void tst_comprobacion::carpetaSacada_intacta()
{
    QFETCH(bool, laDeEncima);
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, copia::Guardada::Final::Hecha);
    const std::filesystem::path bolsa = historico.sacar();
    const Comprobacion comprobacion = comprobar(laDeEncima ? bolsa.parent_path() : bolsa);
    QCOMPARE(comprobacion.veredicto, Veredicto::Intacta);
    QCOMPARE(comprobacion.archivos, 8);
}

void tst_comprobacion::carpetaCambiada_seDiceQue_data()
{
    QTest::addColumn<QByteArray>("archivo");
    QTest::addColumn<bool>("borrar");
    QTest::addColumn<Clase>("clase");
    QTest::newRow("documento") << QByteArray("data/index.html") << false << Clase::Cambiado;
    QTest::newRow("sin documento") << QByteArray("data/index.html") << true << Clase::Falta;
    QTest::newRow("vacio que falta")
        << QByteArray("data/archivos/salones/vacia.html") << true << Clase::Falta;
    QTest::newRow("documento de mas") << QByteArray("data/otro.html") << false << Clase::Sobra;
    QTest::newRow("propio de mas") << QByteArray("notas.txt") << false << Clase::Sobra;
    QTest::newRow("resto") << QByteArray("data/.descarga-1-1") << false << Clase::Sobra;
    QTest::newRow("LEAME") << QByteArray("LEAME.txt") << false << Clase::Cambiado;
    QTest::newRow("sin LEAME") << QByteArray("LEAME.txt") << true << Clase::Falta;
    QTest::newRow("declaracion") << QByteArray("bagit.txt") << false << Clase::Cambiado;
    QTest::newRow("sin declaracion") << QByteArray("bagit.txt") << true << Clase::Falta;
    QTest::newRow("ficha") << QByteArray("bag-info.txt") << false << Clase::Cambiado;
    QTest::newRow("sumas propias")
        << QByteArray("tagmanifest-sha256.txt") << false << Clase::Cambiado;
    QTest::newRow("sin sumas propias")
        << QByteArray("tagmanifest-sha256.txt") << true << Clase::Falta;
}

void tst_comprobacion::carpetaCambiada_seDiceQue()
{
    QFETCH(QByteArray, archivo);
    QFETCH(bool, borrar);
    QFETCH(Clase, clase);
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, copia::Guardada::Final::Hecha);
    const std::filesystem::path bolsa = historico.sacar();
    const std::filesystem::path ruta = bolsa / archivo.toStdString();
    if (borrar)
        QVERIFY(std::filesystem::remove(ruta));
    else
        historico.escribirEn(ruta, "otra cosa");
    const Comprobacion comprobacion = comprobar(bolsa);
    QCOMPARE(comprobacion.veredicto, Veredicto::Distinta);
    QCOMPARE(comprobacion.diferencias,
             (QList<Diferencia>{{.clase = clase, .nombre = QString::fromUtf8(archivo)}}));
}

void tst_comprobacion::sinLoPropio_faltaLoNecesario()
{
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, copia::Guardada::Final::Hecha);
    const std::filesystem::path bolsa = historico.sacar();
    // Without the second nobody says that the first is missing, but the rule for bags.
    for (const char *propio : {"bagit.txt", "tagmanifest-sha256.txt"})
        QVERIFY(std::filesystem::remove(bolsa / propio));
    QCOMPARE(comprobar(bolsa).diferencias,
             (QList<Diferencia>{{.clase = Clase::Falta, .nombre = u"bagit.txt"_s},
                                {.clase = Clase::Falta, .nombre = u"tagmanifest-sha256.txt"_s}}));
}

void tst_comprobacion::cadaByteDelZip_niFallaNiMiente()
{
    const HistoricoDePrueba historico;
    std::filesystem::remove_all(historico.carpeta());
    std::filesystem::create_directories(historico.carpeta() / "archivos");
    historico.escribir("index.html", "<html>" + QByteArray(300, 'a') + "</html>");
    historico.escribir("archivos/ñ.html", "otra");
    QCOMPARE(historico.guardar().final, copia::Guardada::Final::Hecha);
    const QByteArray zip = historico.leer(historico.zip());
    const auto sano = ZipHostil::contenido(historico.zip());
    QCOMPARE(sano.size(), std::size_t{8});
    int notados = 0;
    for (qsizetype i = 0; i < zip.size(); ++i) {
        QByteArray roto = zip;
        roto[i] = static_cast<char>(roto.at(i) ^ (1 << (i % 8)));
        historico.escribirEn(historico.zip(), roto);
        const Comprobacion comprobacion = historico.comprobar();
        if (comprobacion.veredicto == Veredicto::Intacta) {
            // Dates, permissions and the like: whoever unpacks it finds every byte as it was.
            QVERIFY2(ZipHostil::contenido(historico.zip()) == sano, QByteArray::number(i));
        } else {
            ++notados;
            QVERIFY(!comprobacion.texto.isEmpty());
        }
    }
    QVERIFY2(notados > zip.size() / 3, QByteArray::number(notados));
}

void tst_comprobacion::zipCortado_noSeLee()
{
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, copia::Guardada::Final::Hecha);
    const QByteArray zip = historico.leer(historico.zip());
    for (const qsizetype largo : {qsizetype{0}, qsizetype{4}, zip.size() / 2, zip.size() - 1}) {
        historico.escribirEn(historico.zip(), zip.left(largo));
        const Comprobacion comprobacion = historico.comprobar();
        QCOMPARE(comprobacion.veredicto, Veredicto::NoSeLee);
        QCOMPARE(comprobacion.texto, u"No es un ZIP, o está cortado o dañado."_s);
    }
    QCOMPARE(comprobar(historico.ruta("ninguna")).veredicto, Veredicto::NoSeLee);
}

void tst_comprobacion::otraCosa_noEsCopia_data()
{
    QTest::addColumn<ZipHostil::Entradas>("entradas");
    const QByteArray linea = suma("a") + "  data/a\n";
    QTest::newRow("sin bolsa") << ZipHostil::Entradas{{"a", "a"}};
    QTest::newRow("vacio") << ZipHostil::Entradas{};
    QTest::newRow("sin manifiesto") << ZipHostil::Entradas{{"bagit.txt", ""}, {"data/a", "a"}};
    QTest::newRow("manifiesto ilegible")
        << ZipHostil::Entradas{{"bagit.txt", ""}, {"manifest-sha256.txt", "<html>"}};
    QTest::newRow("manifiesto que sale") << ZipHostil::Entradas{
        {"bagit.txt", ""}, {"manifest-sha256.txt", suma("a") + "  data/../../a\n"}};
    QTest::newRow("manifiesto de lo propio") << ZipHostil::Entradas{
        {"bagit.txt", ""}, {"manifest-sha256.txt", suma("") + "  bagit.txt\n"}};
    QTest::newRow("dos bolsas") << ZipHostil::Entradas{{"u/bagit.txt", ""},
                                                       {"u/manifest-sha256.txt", linea},
                                                       {"o/bagit.txt", ""},
                                                       {"o/manifest-sha256.txt", linea}};
    QTest::newRow("demasiado honda")
        << ZipHostil::Entradas{{"a/b/bagit.txt", ""}, {"a/b/manifest-sha256.txt", linea}};
}

void tst_comprobacion::otraCosa_noEsCopia()
{
    QFETCH(ZipHostil::Entradas, entradas);
    const HistoricoDePrueba historico;
    historico.escribirEn(historico.zip(), ZipHostil::hacer(entradas));
    const Comprobacion comprobacion = historico.comprobar();
    QVERIFY2(comprobacion.veredicto == Veredicto::NoEsCopia, qUtf8Printable(comprobacion.texto));
    QVERIFY(comprobacion.diferencias.isEmpty());
}

void tst_comprobacion::zipHostil_rechazado_data()
{
    QTest::addColumn<ZipHostil::Entradas>("de_mas");
    QTest::newRow("sale") << ZipHostil::Entradas{{"../../etc/x", "a"}};
    QTest::newRow("sale a medias") << ZipHostil::Entradas{{"data/../../x", "a"}};
    QTest::newRow("absoluto") << ZipHostil::Entradas{{"/tmp/x", "a"}};
    QTest::newRow("barra invertida") << ZipHostil::Entradas{{"data\\..\\x", "a"}};
    QTest::newRow("unidad") << ZipHostil::Entradas{{"C:/x", "a"}};
    QTest::newRow("dos veces") << ZipHostil::Entradas{{"data/b", "a"}, {"data/b", "a"}};
    QTest::newRow("carpeta y archivo") << ZipHostil::Entradas{{"data/b", "a"}, {"data/b/", ""}};
    QTest::newRow("archivo que se hace carpeta") << ZipHostil::Entradas{{"data/b", "a", 0040755U}};
    QTest::newRow("enlace") << ZipHostil::Entradas{{"data/b", "/etc/passwd", 0120777U}};
}

void tst_comprobacion::zipHostil_rechazado()
{
    QFETCH(ZipHostil::Entradas, de_mas);
    const HistoricoDePrueba historico;
    ZipHostil::Entradas entradas = {
        {"bagit.txt", ""}, {"manifest-sha256.txt", suma("a") + "  data/a\n"}, {"data/a", "a"}};
    historico.escribirEn(historico.zip(), ZipHostil::hacer(entradas));
    // Nothing is wrong with the rest: only the sums of the bag's own files are missing.
    QCOMPARE(historico.comprobar().diferencias,
             (QList<Diferencia>{{.clase = Clase::Falta, .nombre = u"tagmanifest-sha256.txt"_s}}));
    entradas.insert(entradas.end(), de_mas.begin(), de_mas.end());
    historico.escribirEn(historico.zip(), ZipHostil::hacer(entradas));
    const Comprobacion comprobacion = historico.comprobar();
    QCOMPARE(comprobacion.veredicto, Veredicto::NoSeLee);
    QVERIFY2(comprobacion.texto.startsWith(u"No es una copia de fiar: contiene "_s),
             qUtf8Printable(comprobacion.texto));
}

void tst_comprobacion::documentosQueCompartenBytes_rechazados()
{
    // A thousand names for the same 8 MiB of zeros, which are some kilobytes packed.
    const QByteArray ceros(8 << 20, '\0');
    const QByteArray laSuma = suma(ceros);
    QByteArray manifiesto;
    std::vector<QByteArray> nombres;
    for (int i = 0; i < 1000; ++i) {
        nombres.push_back("data/" + QByteArray::number(i));
        manifiesto += laSuma + "  " + nombres.back() + '\n';
    }
    const HistoricoDePrueba historico;
    historico.escribirEn(
        historico.zip(),
        ZipHostil::hacer({{"bagit.txt", ""}, {"manifest-sha256.txt", manifiesto}}, ceros, nombres));
    qint64 leidos = 0;
    const Comprobacion comprobacion =
        copia::comprobar(historico.zip(), [&](qint64 hechos, qint64) { leidos = hechos; }, {});
    QCOMPARE(comprobacion.veredicto, Veredicto::NoSeLee);
    QCOMPARE(comprobacion.texto,
             u"No es una copia de fiar: dice contener más de lo que cabe en ella."_s);
    // No further than the block with which that comes out.
    const auto largo = static_cast<qint64>(std::filesystem::file_size(historico.zip()));
    QVERIFY2(leidos <= largo * 1032 + 65536, QByteArray::number(leidos));
}

void tst_comprobacion::detenida_seDice()
{
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, copia::Guardada::Final::Hecha);
    std::stop_source fuente;
    const auto detener = [&](qint64, qint64) {
        fuente.request_stop();
    };
    QCOMPARE(copia::comprobar(historico.zip(), detener, fuente.get_token()).veredicto,
             Veredicto::Detenida);
    QCOMPARE(copia::comprobar(historico.zip(), {}, fuente.get_token()).veredicto,
             Veredicto::Detenida);
}

QTEST_GUILESS_MAIN(tst_comprobacion)
#include "tst_comprobacion.moc"

// SPDX-License-Identifier: MIT
// Writing a copy: what stands in it, and when there is none.
#include "HistoricoDePrueba.h"

#include <QCryptographicHash>
#include <QTest>

using namespace Qt::StringLiterals;
using Final = copia::Guardada::Final;

class tst_copia : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void copia_losBytesDeCadaDocumento();
    void copia_suManifiesto();
    void copia_lasFechasDeLosDocumentos();
    void mismaCarpeta_mismosBytes();
    void nombreConPorciento_codificado();
    void carpetaPorOtroNombre_esLaMisma_data();
    void carpetaPorOtroNombre_esLaMisma();
    void carpetaVaciaOAusente_rechazada();
    void destinoDentro_rechazado_data();
    void destinoDentro_rechazado();
    void copiaAnterior_soloSeReemplazaPedida();
    void destinoQueEsCarpeta_rechazado();
    void cambioMientrasSeCopia_seNota_data();
    void cambioMientrasSeCopia_seNota();
    void detenida_noDejaNada();
    void avance_llegaAlTotal();
};

void tst_copia::copia_losBytesDeCadaDocumento()
{
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, Final::Hecha);
    const std::filesystem::path bolsa = historico.sacar();
    for (const auto &[nombre, bytes] : HistoricoDePrueba::documentos())
        QCOMPARE(historico.leer(bolsa / "data" / rutaDe(nombre)), bytes);
    QVERIFY(std::filesystem::is_empty(bolsa / "data/archivos/config"));
}

void tst_copia::copia_suManifiesto()
{
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, Final::Hecha);
    const std::filesystem::path bolsa = historico.sacar();
    QByteArray manifiesto;
    qint64 bytes = 0;
    for (const auto &[nombre, contenido] : HistoricoDePrueba::documentos()) {
        manifiesto += QCryptographicHash::hash(contenido, QCryptographicHash::Sha256).toHex()
                      + "  data/" + nombre + '\n';
        bytes += contenido.size();
    }
    QCOMPARE(historico.leer(bolsa / "manifest-sha256.txt"), manifiesto);
    QCOMPARE(historico.leer(bolsa / "bag-info.txt"),
             "Bag-Software-Agent: parvanel-revisor 4.0.0\nBagging-Date: 2026-11-21\n"
             "External-Identifier: 123-2010\nPayload-Oxum: "
                 + QByteArray::number(bytes) + ".8\n");
    QCOMPARE(historico.leer(bolsa / "bagit.txt"),
             QByteArray("BagIt-Version: 1.0\nTag-File-Character-Encoding: UTF-8\n"));
}

void tst_copia::copia_lasFechasDeLosDocumentos()
{
    const HistoricoDePrueba historico;
    const auto momento = std::filesystem::file_time_type::clock::from_sys(
        std::chrono::sys_seconds(std::chrono::seconds(1000000000)));
    std::filesystem::last_write_time(historico.carpeta() / "index.html", momento);
    QCOMPARE(historico.guardar().final, Final::Hecha);
    QVERIFY(std::filesystem::last_write_time(historico.sacar() / "data/index.html") == momento);
}

void tst_copia::mismaCarpeta_mismosBytes()
{
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, Final::Hecha);
    const QByteArray primera = historico.leer(historico.zip());
    copia::Encargo otra = historico.encargo();
    otra.reemplazar = true;
    QCOMPARE(copia::guardar(otra, {}, {}).final, Final::Hecha);
    QVERIFY(historico.leer(historico.zip()) == primera);
    otra.cuando = otra.cuando.addDays(1);
    QCOMPARE(copia::guardar(otra, {}, {}).final, Final::Hecha);
    QVERIFY(historico.leer(historico.zip()) != primera);
}

void tst_copia::nombreConPorciento_codificado()
{
    const HistoricoDePrueba historico;
    historico.escribir("archivos/100%.html", "cien");
    QCOMPARE(historico.guardar().final, Final::Hecha);
    const QByteArray manifiesto = historico.leer(historico.sacar() / "manifest-sha256.txt");
    QVERIFY(manifiesto.contains("  data/archivos/100%25.html\n"));
    QCOMPARE(historico.comprobar().veredicto, copia::Comprobacion::Veredicto::Intacta);
}

void tst_copia::carpetaPorOtroNombre_esLaMisma_data()
{
    QTest::addColumn<QByteArray>("carpeta");
    QTest::newRow("separador al final") << QByteArray("123-2010/");
    QTest::newRow("con rodeo") << QByteArray("123-2010/archivos/..");
}

void tst_copia::carpetaPorOtroNombre_esLaMisma()
{
    QFETCH(QByteArray, carpeta);
    const HistoricoDePrueba historico;
    copia::Encargo encargo = historico.encargo();
    encargo.carpeta = historico.ruta(carpeta.constData());
    const copia::Guardada guardada = copia::guardar(encargo, {}, {});
    QCOMPARE(guardada.final, Final::Hecha);
    QCOMPARE(guardada.archivos, 8);
    QVERIFY(historico.leer(historico.sacar() / "bag-info.txt")
                .contains("\nExternal-Identifier: 123-2010\n"));
}

void tst_copia::carpetaVaciaOAusente_rechazada()
{
    const HistoricoDePrueba historico;
    copia::Encargo encargo = historico.encargo();
    encargo.carpeta = historico.carpeta() / "archivos/config";
    QCOMPARE(copia::guardar(encargo, {}, {}).texto,
             u"No se guardó la copia. La carpeta no tiene documentos."_s);
    encargo.carpeta = historico.carpeta() / "ninguna";
    QVERIFY(copia::guardar(encargo, {}, {}).texto.startsWith(u"No hay tal carpeta: "_s));
    QVERIFY(historico.enCopias().isEmpty());
}

void tst_copia::destinoDentro_rechazado_data()
{
    QTest::addColumn<QByteArray>("destino");
    QTest::newRow("dentro") << QByteArray("123-2010/copia.zip");
    QTest::newRow("hondo") << QByteArray("123-2010/archivos/salones/copia.zip");
    QTest::newRow("con rodeo") << QByteArray("copias/../123-2010/copia.zip");
}

void tst_copia::destinoDentro_rechazado()
{
    QFETCH(QByteArray, destino);
    const HistoricoDePrueba historico;
    copia::Encargo encargo = historico.encargo();
    encargo.destino = historico.ruta(destino.constData());
    encargo.reemplazar = true;
    const copia::Guardada guardada = copia::guardar(encargo, {}, {});
    QCOMPARE(guardada.final, Final::Fallo);
    QVERIFY(guardada.texto.contains(u"dentro del histórico"_s));
    QCOMPARE(historico.leer(historico.carpeta() / "index.html"),
             HistoricoDePrueba::documentos().at("index.html"));
}

void tst_copia::copiaAnterior_soloSeReemplazaPedida()
{
    const HistoricoDePrueba historico;
    historico.escribirEn(historico.zip(), "anterior");
    QCOMPARE(historico.guardar().final, Final::YaExiste);
    QCOMPARE(historico.leer(historico.zip()), QByteArray("anterior"));

    copia::Encargo encargo = historico.encargo();
    encargo.reemplazar = true;
    QCOMPARE(copia::guardar(encargo, {}, {}).final, Final::Hecha);
    QCOMPARE(historico.comprobar().veredicto, copia::Comprobacion::Veredicto::Intacta);

    // One that appears while the copy is written.
    std::filesystem::remove(historico.zip());
    const auto aparece = [&](qint64, qint64) {
        historico.escribirEn(historico.zip(), "otra");
    };
    QCOMPARE(copia::guardar(historico.encargo(), aparece, {}).final, Final::YaExiste);
    QCOMPARE(historico.leer(historico.zip()), QByteArray("otra"));
    QCOMPARE(historico.enCopias(), QStringList{u"mi copia.zip"_s});
}

void tst_copia::destinoQueEsCarpeta_rechazado()
{
    const HistoricoDePrueba historico;
    copia::Encargo encargo = historico.encargo();
    encargo.destino = historico.ruta("copias");
    encargo.reemplazar = true;
    QVERIFY(copia::guardar(encargo, {}, {}).texto.startsWith(u"Es una carpeta: "_s));
    encargo.destino = historico.ruta("ninguna/copia.zip");
    QVERIFY(copia::guardar(encargo, {}, {}).texto.contains(u"no se puede escribir"_s));
    QVERIFY(historico.enCopias().isEmpty());
}

void tst_copia::cambioMientrasSeCopia_seNota_data()
{
    QTest::addColumn<QByteArray>("nombre");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("crece") << QByteArray("archivos/foto.jpg") << QByteArray(400000, 'y');
    QTest::newRow("mengua") << QByteArray("archivos/foto.jpg") << QByteArray("y");
    QTest::newRow("igual de largo, ya copiado")
        << QByteArray("archivos/foto.jpg") << QByteArray(300000, 'y');
    QTest::newRow("por copiar") << QByteArray("index.html") << QByteArray("nueva");
    QTest::newRow("aparece") << QByteArray("archivos/nuevo.html") << QByteArray("nuevo");
}

void tst_copia::cambioMientrasSeCopia_seNota()
{
    QFETCH(QByteArray, nombre);
    QFETCH(QByteArray, bytes);
    const HistoricoDePrueba historico;
    // Old enough that a file written now is seen to be another by any clock.
    const auto antes = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    for (const auto &[documento, contenido] : HistoricoDePrueba::documentos())
        std::filesystem::last_write_time(historico.carpeta() / rutaDe(documento), antes);
    bool hecho = false;
    const auto cambiar = [&](qint64 hechos, qint64 /*total*/) {
        if (hechos > 65536 && !std::exchange(hecho, true))
            historico.escribir(nombre, bytes);
    };
    const copia::Guardada guardada = copia::guardar(historico.encargo(), cambiar, {});
    QVERIFY(hecho);
    QCOMPARE(guardada.final, Final::Fallo);
    QVERIFY2(guardada.texto.contains(u"cambió mientras se copiaba: "_s
                                     + QDir::toNativeSeparators(historico.texto("123-2010"))),
             qUtf8Printable(guardada.texto));
    QVERIFY(historico.enCopias().isEmpty());
}

void tst_copia::detenida_noDejaNada()
{
    const HistoricoDePrueba historico;
    std::stop_source fuente;
    const auto detener = [&](qint64, qint64) {
        fuente.request_stop();
    };
    QCOMPARE(copia::guardar(historico.encargo(), detener, fuente.get_token()).final,
             Final::Detenida);
    QVERIFY(historico.enCopias().isEmpty());
    // Before the first byte.
    QCOMPARE(copia::guardar(historico.encargo(), {}, fuente.get_token()).final, Final::Detenida);
    QVERIFY(historico.enCopias().isEmpty());
}

void tst_copia::avance_llegaAlTotal()
{
    const HistoricoDePrueba historico;
    qint64 ultimo = 0;
    qint64 fin = 0;
    int veces = 0;
    const auto anotar = [&](qint64 hechos, qint64 total) {
        QVERIFY(hechos >= ultimo);
        ultimo = hechos;
        fin = total;
        ++veces;
    };
    const copia::Guardada guardada = copia::guardar(historico.encargo(), anotar, {});
    QCOMPARE(ultimo, guardada.bytes);
    QCOMPARE(fin, guardada.bytes);
    QVERIFY(veces > 8); // the photo alone takes five
}

QTEST_GUILESS_MAIN(tst_copia)
#include "tst_copia.moc"

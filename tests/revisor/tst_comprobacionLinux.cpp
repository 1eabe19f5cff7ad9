// SPDX-License-Identifier: MIT
// Proving a copy that another program has packed anew, and one with a link in it.
#include "HistoricoDePrueba.h"

#include <QTest>

using namespace Qt::StringLiterals;
using copia::Comprobacion;
using copia::Diferencia;
using Clase = Diferencia::Clase;

class tst_comprobacionLinux : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void enlaceEnLugarDeUnDocumento_esCambio();
    void zipVueltoAEmpacar_seDiceQue();
};

namespace {

Comprobacion comprobar(const std::filesystem::path &ruta)
{
    return copia::comprobar(ruta, {}, {});
}

} // namespace

void tst_comprobacionLinux::enlaceEnLugarDeUnDocumento_esCambio()
{
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, copia::Guardada::Final::Hecha);
    const std::filesystem::path bolsa = historico.sacar();
    std::filesystem::rename(bolsa / "data/index.html", historico.ruta("copias/index.html"));
    std::filesystem::create_symlink(historico.ruta("copias/index.html"), bolsa / "data/index.html");
    const Comprobacion comprobacion = comprobar(bolsa);
    QCOMPARE(comprobacion.diferencias,
             (QList<Diferencia>{{.clase = Clase::Cambiado, .nombre = u"data/index.html"_s}}));
}

void tst_comprobacionLinux::zipVueltoAEmpacar_seDiceQue()
{
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, copia::Guardada::Final::Hecha);
    const std::filesystem::path bolsa = historico.sacar();
    historico.escribirEn(bolsa / "data/index.html", "otra portada");
    historico.escribirEn(bolsa / "data/mas.html", "mas");
    QVERIFY(std::filesystem::remove(bolsa / "data/archivos/foto.jpg"));
    historico.escribirEn(bolsa.parent_path() / "fuera.txt", "fuera");
    // By another program, with and without a folder above.
    const QString zip = historico.texto("otra.zip");
    QCOMPARE(historico.correr("bsdtar", {u"-caf"_s, zip, u"mi copia"_s, u"fuera.txt"_s},
                              QString::fromStdString(bolsa.parent_path().string())),
             0);
    QList<Diferencia> esperadas = {
        {.clase = Clase::Falta, .nombre = u"data/archivos/foto.jpg"_s},
        {.clase = Clase::Cambiado, .nombre = u"data/index.html"_s},
        {.clase = Clase::Sobra, .nombre = u"data/mas.html"_s},
        {.clase = Clase::Sobra, .nombre = u"fuera.txt"_s},
    };
    Comprobacion comprobacion = comprobar(historico.ruta("otra.zip"));
    QCOMPARE(comprobacion.diferencias, esperadas);
    QCOMPARE(comprobacion.texto,
             u"La copia no está como se guardó: 1 archivo cambió, 1 falta, 2 sobran."_s);
    QCOMPARE(comprobacion.archivos, 6);

    const QString plano = historico.texto("plano.zip");
    QCOMPARE(historico.correr("bsdtar",
                              {u"-caf"_s, plano, u"--exclude"_s, u"mas.html"_s, u"data"_s,
                               u"bagit.txt"_s, u"bag-info.txt"_s, u"LEAME.txt"_s,
                               u"manifest-sha256.txt"_s, u"tagmanifest-sha256.txt"_s},
                              QString::fromStdString(bolsa.string())),
             0);
    esperadas.remove(2, 2);
    QCOMPARE(comprobar(historico.ruta("plano.zip")).diferencias, esperadas);
}

QTEST_GUILESS_MAIN(tst_comprobacionLinux)
#include "tst_comprobacionLinux.moc"

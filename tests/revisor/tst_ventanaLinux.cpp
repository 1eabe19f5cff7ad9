// SPDX-License-Identifier: MIT
// The reviewer's window on a desktop whose own program is a script, and before a folder that an
// account may not write to.
#include "ModeloHallazgos.h"
#include "PanelHallazgos.h"
#include "VentanaRevisorDePrueba.h"
#include "escenario/ProgramasEnPath.h"
#include "escenario/SinPermiso.h"

#include <QFile>
#include <QFileInfo>
#include <QTreeView>

using namespace Qt::StringLiterals;

class tst_ventanaLinux : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void abrirPagina_soloLaQueEstaYSePuedeMirar()
    {
        const ProgramasEnPath programas;
        const QByteArray nota = programas.ruta(u"nota"_s).toUtf8();
        programas.poner(u"xdg-open"_s, "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + nota + ".n'\nmv '"
                                           + nota + ".n' '" + nota + "'\n");
        VentanaRevisorDePrueba v;
        const HistoricoRoto historico;
        historico.escribir("archivos/salones/programa.sh", "#!/bin/sh\n");
        v.revisar(historico.donde());
        auto *panel = v.elemento<PanelHallazgos>("panelFaltas");
        auto *arbol = v.elemento<QTreeView>("arbol", "panelFaltas");
        const auto *modelo = qobject_cast<ModeloHallazgos *>(arbol->model());
        int conPagina = 0;
        int sinPagina = 0;
        for (int grupo = 0; grupo < modelo->rowCount(); ++grupo) {
            const QModelIndex madre = modelo->index(grupo, 0);
            for (int fila = 0; fila < modelo->rowCount(madre); ++fila) {
                arbol->setCurrentIndex(modelo->index(fila, 0, madre));
                const QString &archivo = panel->elegido()->archivo;
                const bool esta = QFileInfo(historico.donde() + u'/' + archivo).isFile();
                const bool seMira = archivo.endsWith(u".html"_s) || archivo.endsWith(u".txt"_s)
                                    || archivo.endsWith(u".jpg"_s);
                QCOMPARE(v.activo("botonAbrir"), esta && seMira);
                ++(esta && seMira ? conPagina : sinPagina);
                if (esta && seMira && conPagina == 1) {
                    v.clic("botonAbrir");
                    QTRY_COMPARE_WITH_TIMEOUT(programas.leer(u"nota"_s),
                                              (historico.donde() + u'/' + archivo + u'\n').toUtf8(),
                                              60000);
                }
            }
        }
        QVERIFY(conPagina > 0);
        QVERIFY(sinPagina > 0);
    }

    void carpetaProhibida_seDice()
    {
        VentanaRevisorDePrueba v;
        const HistoricoRoto historico;
        v.revisar(historico.donde());
        // Whoever the test goes on as has to reach the archive.
        constexpr auto deTodos = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
                                 | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther
                                 | QFile::ExeOther;
        QVERIFY(QFile::setPermissions(historico.texto(""), deTodos));
        const SinPermiso prohibida(historico.texto("copias"));
        v.ventana.guardarInforme(historico.texto("copias/i.html"), Ventana::Anterior::SeQueda);
        QVERIFY(v.enReposo());
        QVERIFY(
            v.texto("rotuloAviso").startsWith(u"No se guardó el informe: no se puede escribir"_s));
        v.ventana.guardarCopia(historico.texto("copias/a.zip"), Ventana::Anterior::SeQueda);
        QVERIFY(v.enReposo());
        QVERIFY2(v.texto("rotuloAviso").startsWith(u"No se guardó la copia"_s),
                 qPrintable(v.texto("rotuloAviso")));
    }
};

QTEST_MAIN(tst_ventanaLinux)
#include "tst_ventanaLinux.moc"

// SPDX-License-Identifier: MIT
#include "recorrido_windows.h"

#include <QTest>

#include <windows.h>

using recorrido::Clase;

class tst_recorridoWindows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void clase_porAtributosYEtiqueta_data()
    {
        QTest::addColumn<quint32>("atributos");
        QTest::addColumn<quint32>("etiqueta");
        QTest::addColumn<Clase>("clase");
        const auto fila = [](const char *titulo, quint32 atributos, quint32 etiqueta, Clase clase) {
            QTest::newRow(titulo) << atributos << etiqueta << clase;
        };
        constexpr quint32 archivo = FILE_ATTRIBUTE_ARCHIVE;
        constexpr quint32 carpeta = FILE_ATTRIBUTE_DIRECTORY;
        constexpr quint32 conEtiqueta = FILE_ATTRIBUTE_REPARSE_POINT;
        fila("archivo", archivo, 0, Clase::Archivo);
        fila("archivo sin nada mas", FILE_ATTRIBUTE_NORMAL, 0, Clase::Archivo);
        fila("carpeta", carpeta, 0, Clase::Carpeta);
        fila("dispositivo", FILE_ATTRIBUTE_DEVICE, 0, Clase::Otra);
        fila("enlace a un archivo", archivo | conEtiqueta, IO_REPARSE_TAG_SYMLINK, Clase::Enlace);
        fila("enlace a una carpeta", carpeta | conEtiqueta, IO_REPARSE_TAG_SYMLINK, Clase::Enlace);
        fila("carpeta que lleva a otra", carpeta | conEtiqueta, IO_REPARSE_TAG_MOUNT_POINT,
             Clase::Enlace);
        constexpr quint32 enLaNube = 0x9000001A;
        fila("archivo en la nube", archivo | conEtiqueta, enLaNube, Clase::Archivo);
        fila("carpeta en la nube", carpeta | conEtiqueta, enLaNube, Clase::Carpeta);
        // Without the attribute what stands there is none, whatever it is.
        fila("sin etiqueta", carpeta, IO_REPARSE_TAG_MOUNT_POINT, Clase::Carpeta);
    }

    void clase_porAtributosYEtiqueta()
    {
        QFETCH(quint32, atributos);
        QFETCH(quint32, etiqueta);
        QFETCH(Clase, clase);
        QVERIFY(recorrido::claseDe(atributos, etiqueta) == clase);
    }
};

QTEST_GUILESS_MAIN(tst_recorridoWindows)
#include "tst_recorridoWindows.moc"

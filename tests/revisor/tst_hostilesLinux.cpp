// SPDX-License-Identifier: MIT
// Archives with what this system alone puts into a folder: links, pipes, names of any bytes, and
// folders that may not be read.
#include "Pequeno.h"

#include "escenario/SinPermiso.h"

#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

class tst_hostilesLinux : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void enlacesEnCirculo_seLeenUnaVez()
    {
        const Pequeno archivo;
        const fs::path a = archivo.carpetaDe() / "archivos";
        fs::create_directory(a / "uno");
        fs::create_directory(a / "dos");
        fs::create_directory_symlink("../dos", a / "uno/dos");
        fs::create_directory_symlink("../uno", a / "dos/uno");
        fs::create_directory_symlink("..", a / "uno/arriba");
        fs::create_symlink("solo", a / "solo");
        fs::create_directory_symlink("/", a / "raiz");
        escrito(a / "uno/x.html", "<html></html>");
        const Resultado resultado = revisar(archivo.carpetaDe());
        QVERIFY(resultado.archivos < 10);
        QStringList fuera;
        QStringList nada;
        for (const Hallazgo &h : resultado.hallazgos) {
            if (h.regla == &reglas::todas[reglas::CarpetaFuera])
                fuera.append(h.archivo);
            if (h.regla == &reglas::todas[reglas::EnlaceSinDestino])
                nada.append(h.archivo);
        }
        QCOMPARE(fuera, QStringList{u"archivos/raiz"_s});
        QVERIFY(nada.contains(u"archivos/solo"_s));
        QVERIFY(nada.contains(u"archivos/uno/arriba"_s));
    }

    void tuberia_noSeAbre()
    {
        const Pequeno archivo;
        const std::string ruta = (archivo.carpetaDe() / "archivos/infoAlumnos/1.html").string();
        QCOMPARE(::mkfifo(ruta.c_str(), 0600), 0);
        QCOMPARE(revisar(archivo.carpetaDe()).veredicto, Veredicto::FaltanDocumentos);
    }

    void nombresDeCualquierByte_seRevisan()
    {
        const Pequeno archivo;
        int cuantos = 0;
        for (int byte = 1; byte < 256; ++byte) {
            if (byte == '/' || byte == '.')
                continue;
            const std::string nombre(1, static_cast<char>(byte));
            escrito(archivo.carpetaDe() / "archivos/infoAlumnos" / fs::path(nombre + ".html"),
                    "ERROR");
            ++cuantos;
        }
        const Resultado resultado = revisar(archivo.carpetaDe());
        int errores = 0;
        for (const Hallazgo &h : resultado.hallazgos)
            errores += h.regla == &reglas::todas[reglas::PalabraDelServicio] ? 1 : 0;
        QCOMPARE(errores, cuantos);
    }

    void carpetaSinPermiso_esUnHallazgo()
    {
        const Pequeno archivo;
        const QString carpeta = textoDe(archivo.carpetaDe() / "archivos/salones");
        const SinPermiso sinPermiso(carpeta, {textoDe(archivo.carpetaDe().parent_path()),
                                              textoDe(archivo.carpetaDe()),
                                              textoDe(archivo.carpetaDe() / "archivos"), carpeta});
        fs::permissions(archivo.carpetaDe() / "archivos/salones", fs::perms::none);
        const QStringList reglas = archivo.reglasDe(u"archivos/salones"_s);
        fs::permissions(archivo.carpetaDe() / "archivos/salones", fs::perms::owner_all);
        QCOMPARE(reglas, QStringList{u"no-se-lee"_s});
    }

    // Its names are told, and of what kind each is; no more than that.
    void carpetaSinPaso_cadaArchivoEsUnHallazgo()
    {
        const Pequeno archivo;
        const fs::path salones = archivo.carpetaDe() / "archivos/salones";
        escrito(salones / "1.html", "<html></html>");
        fs::create_directory(salones / "otra");
        const SinPermiso sinPermiso(textoDe(salones),
                                    {textoDe(archivo.carpetaDe().parent_path()),
                                     textoDe(archivo.carpetaDe()),
                                     textoDe(archivo.carpetaDe() / "archivos"), textoDe(salones)});
        fs::permissions(salones, fs::perms::owner_read);
        const QStringList delArchivo = archivo.reglasDe(u"archivos/salones/1.html"_s);
        const QStringList deLaCarpeta = archivo.reglasDe(u"archivos/salones/otra"_s);
        fs::permissions(salones, fs::perms::owner_all);
        QCOMPARE(delArchivo, QStringList{u"no-se-lee"_s});
        QCOMPARE(deLaCarpeta, QStringList{u"no-se-lee"_s});
    }
};

QTEST_MAIN(tst_hostilesLinux)
#include "tst_hostilesLinux.moc"

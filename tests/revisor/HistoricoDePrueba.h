// SPDX-License-Identifier: MIT
// A small archive of the test's own and a place for its copies.
#pragma once

#include "revisor/comprobacion.h"
#include "revisor/copia.h"
#include "revisor/nombres.h"
#include "revisor/sacar.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimeZone>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>

class HistoricoDePrueba {
public:
    HistoricoDePrueba()
    {
        QDir(m_lugar.path()).mkpath(QStringLiteral("123-2010/archivos/salones"));
        QDir(m_lugar.path()).mkpath(QStringLiteral("123-2010/archivos/config"));
        QDir(m_lugar.path()).mkpath(QStringLiteral("copias"));
        for (const auto &[nombre, bytes] : documentos())
            escribir(nombre, bytes);
    }

    ~HistoricoDePrueba()
    {
        // The temporary folder cannot remove what has a name that is no text.
        std::error_code error;
        std::filesystem::remove_all(rutaDe(m_lugar.path()), error);
    }
    HistoricoDePrueba(const HistoricoDePrueba &) = delete;
    HistoricoDePrueba &operator=(const HistoricoDePrueba &) = delete;

    // What stands in the archive, name by name.
    static std::map<QByteArray, QByteArray> documentos()
    {
        QByteArray foto; // beyond one block, and not to be packed to nothing
        QRandomGenerator azar(1);
        for (int i = 0; i < 300000; ++i)
            foto += static_cast<char>(azar.bounded(256));
        return {{"index.html", "<html>portada\x91\x00</html>\r\n"},
                {"configuracion.txt", "var rector = \"Peña\";\r\n\r\n"},
                {"archivos/salones/7.html", QByteArray(50000, 'x')},
                {"archivos/salones/Ñandú 8.html", "\r\n"},
                {"archivos/salones/vacia.html", ""},
                // The accent a character of its own: it must not be taken for the other spelling.
                {"archivos/salones/cafe\xCC\x81.html", "aparte"},
                {"archivos/salones/caf\xC3\xA9.html", "junta"},
                {"archivos/foto.jpg", foto}};
    }

    std::filesystem::path carpeta() const { return ruta("123-2010"); }
    std::filesystem::path zip() const { return ruta("copias/mi copia.zip"); }
    std::filesystem::path ruta(const char *dentro) const
    {
        return rutaDe(m_lugar.path()) / rutaDe(QByteArray(dentro));
    }
    QString texto(const char *dentro) const { return m_lugar.filePath(QString::fromUtf8(dentro)); }

    void escribir(const QByteArray &nombre, const QByteArray &bytes) const
    {
        escribirEn(carpeta() / rutaDe(nombre), bytes);
    }
    static void escribirEn(const std::filesystem::path &ruta, const QByteArray &bytes)
    {
        std::ofstream archivo(ruta, std::ios::binary);
        archivo.write(bytes.constData(), bytes.size());
        archivo.close();
        if (!archivo)
            qFatal("a file of the test could not be written");
    }
    static QByteArray leer(const std::filesystem::path &ruta)
    {
        std::ifstream archivo(ruta, std::ios::binary);
        return QByteArray::fromStdString(
            {std::istreambuf_iterator<char>(archivo), std::istreambuf_iterator<char>()});
    }

    copia::Encargo encargo() const
    {
        return {.carpeta = carpeta(),
                .destino = zip(),
                .cuando = QDateTime(QDate(2026, 11, 21), QTime(9, 30), QTimeZone::utc()),
                .programa = QStringLiteral("parvanel-revisor 4.0.0")};
    }
    copia::Guardada guardar() const { return copia::guardar(encargo(), {}, {}); }
    copia::Comprobacion comprobar() const { return copia::comprobar(zip(), {}, {}); }

    // What stands in the folder of the copies, hidden files too.
    QStringList enCopias() const
    {
        return QDir(texto("copias"))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDir::Name);
    }

    // Unpacks the copy beside it, and gives the bag's folder.
    std::filesystem::path sacar() const
    {
        if (!sacarZip(zip(), ruta("fuera")))
            qFatal("the copy could not be unpacked");
        return ruta("fuera/mi copia");
    }

    // The exit status of a program, and what it says in the test's log when it is not 0.
    static int correr(const char *programa, const std::initializer_list<QString> &argumentos,
                      const QString &carpeta = {}, QByteArray *salida = nullptr)
    {
        QProcess proceso;
        proceso.setWorkingDirectory(carpeta);
        proceso.setProcessChannelMode(QProcess::MergedChannels);
        proceso.setStandardInputFile(QProcess::nullDevice()); // nobody answers a question
        proceso.start(QString::fromLatin1(programa), argumentos);
        if (!proceso.waitForFinished(60000) || proceso.exitStatus() != QProcess::NormalExit)
            return -1;
        const QByteArray dicho = proceso.readAll();
        if (proceso.exitCode() != 0)
            qInfo("%s: %s", programa, dicho.constData());
        if (salida != nullptr)
            *salida = dicho;
        return proceso.exitCode();
    }

private:
    QTemporaryDir m_lugar;
};

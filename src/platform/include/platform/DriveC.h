// SPDX-License-Identifier: MIT
// Drive C as the program sees it: folders and files named by Windows paths.
//
// On Windows C:\ is drive C; on Linux it is the user's home folder, and names are stored as UTF-8.
// Each name is looked up without regard to letter case (the existing spelling wins, a new entry
// gets the spelling asked for).
// Nothing is ever created, changed or deleted outside the archive root: a path that leaves it,
// through "..", through a link or junction or by naming another folder, makes the operation fail,
// as does a name that Windows refuses. An operation on a file fails as well for a path that ends in
// a separator, and for one that leads to anything but a regular file. Of two entries that differ in
// letter case only, the exact spelling wins, else the first by name. No operation throws or shows
// anything; failure is the return value. None waits for another process, but that on Windows a file
// which another program holds is tried again for up to a second, and then passed over.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

// A file that is being received. It is written under a temporary name in the folder of its path
// and takes its own name only when it is whole; destroyed before that, it leaves no file. It must
// not outlive the DriveC that gave it.
class ArchivoEntrante {
public:
    virtual ~ArchivoEntrante() = default;
    // Where the bytes go; open for writing. It lives as long as this object; publicar() closes it.
    virtual QIODevice &dispositivo() = 0;
    // Gives the file its name, in place of an earlier file, also one marked as read-only. False: a
    // byte could not be written, the name could not be given, or the folder is no longer where it
    // was.
    virtual bool publicar() = 0;
};

class DriveC {
public:
    // The folder that C:\ stands for. On Windows drive C itself. On Linux the user's home folder:
    // HOME if that is an absolute path, else the account's. Empty when neither gives one; it is
    // never another folder in their stead.
    static QString carpetaPersonal();

    // `carpetaPersonal` is the absolute native folder that C:\ stands for; `raiz` the one folder
    // in it that the program may write to. Any other `carpetaPersonal`, an empty one too, makes a
    // drive C that is not there: every operation fails.
    explicit DriveC(const QString &carpetaPersonal,
                    const QString &raiz = QStringLiteral("Quorvela"));
    ~DriveC();
    DriveC(const DriveC &) = delete;
    DriveC &operator=(const DriveC &) = delete;

    // Makes one folder. False when it exists already or its parent does not. When it exists in
    // another spelling, on Linux a link of the asked-for spelling is put beside it, because
    // browsers do regard letter case there: links in stored pages then work in either.
    bool crearCarpeta(const QString &ruta);

    // Removes a file, one that is marked as read-only too: whether it goes is its folder's to say.
    // False when there is none, or it is a folder. From then on `ruta` stands for no file of
    // another spelling: what is written to it next is a file of its own.
    bool borrar(const QString &ruta);

    // The length of a file in bytes; nothing when there is no such file.
    std::optional<qint64> largo(const QString &ruta) const;

    // Adds the bytes at the end of a file, which is made if missing. False when not all could
    // be written; what was written stays. False also for a file that has another name as well (a
    // hard link): it would change under that name too, which may stand outside of the archive.
    bool agregar(const QString &ruta, const QByteArray &bytes);

    // Writes a file that was deleted before. What stands there all the same is somebody else's,
    // another window's page as a rule: it is deleted as well, and the file holds these bytes alone.
    // Any number of programs may write one file at once; it ends as the whole file of one of them.
    // If it cannot be deleted, as agregar().
    bool escribir(const QString &ruta, const QByteArray &bytes);

    // Begins to receive a file; null when it cannot be written at that path. What killed
    // processes left of theirs in the same folder is removed first.
    std::unique_ptr<ArchivoEntrante> recibir(const QString &ruta);

    // The subfolders of a folder, by name without regard to letter case; nothing when the folder
    // does not exist. On drive C each is given by its full Windows path, beginning as `ruta`
    // does; a native path ("/home/ana", "D:/ana") gives native paths. Links of another spelling
    // are passed over.
    std::optional<QStringList> carpetas(const QString &ruta) const;

    // The native path of a document for the shell: of a path on drive C the file that it means,
    // any other path as it is. A line of the archive root's listing with "/" and a document after
    // it means what stands in that very folder, whatever its name.
    QString rutaNativa(const QString &ruta) const;

    class Interno;

private:
    std::unique_ptr<Interno> d;
};

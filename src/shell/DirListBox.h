// SPDX-License-Identifier: MIT
// A directory list: the subfolders of one folder. It is the source of the archive list and is
// itself not shown.
#pragma once

#include <QListWidget>
#include <QString>

class DriveC;

class DirListBox : public QListWidget {
    Q_OBJECT
public:
    explicit DirListBox(QWidget *padre = nullptr);

    // Where folders are read from, borrowed: it must outlive the list. At first the list shows the
    // process's current folder.
    void ponerDisco(const DriveC *disco);

    // Points the list at a folder. One that does not exist leaves it as it was.
    void Path(const QString &carpeta);
    QString Path() const { return m_carpeta; }

    // Reads the folder again: one full path an entry.
    void Refresh();

private:
    const DriveC *m_disco = nullptr;
    QString m_carpeta;
};

// SPDX-License-Identifier: MIT
#include "DirListBox.h"
#include "platform/DriveC.h"

#include <QDir>

DirListBox::DirListBox(QWidget *padre) : QListWidget(padre) {}

void DirListBox::ponerDisco(const DriveC *disco)
{
    m_disco = disco;
    Path(QDir::currentPath());
}

void DirListBox::Path(const QString &carpeta)
{
    if (!m_disco || !m_disco->carpetas(carpeta))
        return;
    m_carpeta = carpeta;
    Refresh();
}

void DirListBox::Refresh()
{
    clear();
    if (m_disco)
        addItems(m_disco->carpetas(m_carpeta).value_or(QStringList()));
}

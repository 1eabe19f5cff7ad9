// SPDX-License-Identifier: MIT
#include "DirListBox.h"
#include "platform/DriveC.h"

#include <QDir>

DirListBox::DirListBox(QWidget *padre) : QListWidget(padre) {}

void DirListBox::ponerDisco(const DriveC *disco)
{
    m_disco = disco;
    Path(QDir::toNativeSeparators(QDir::currentPath()));
}

void DirListBox::Path(const QString &carpeta)
{
    const auto carpetas = m_disco ? m_disco->carpetas(carpeta) : std::nullopt;
    if (!carpetas)
        return;
    m_carpeta = carpeta;
    clear();
    addItems(*carpetas);
}

void DirListBox::Refresh()
{
    clear();
    if (m_disco)
        addItems(m_disco->carpetas(m_carpeta).value_or(QStringList()));
}

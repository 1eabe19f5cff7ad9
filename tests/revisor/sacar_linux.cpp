// SPDX-License-Identifier: MIT
#include "revisor/sacar.h"

#include "revisor/nombres.h"

#include <QProcess>

using namespace Qt::StringLiterals;

bool sacarZip(const std::filesystem::path &zip, const std::filesystem::path &carpeta)
{
    QProcess programa;
    programa.setStandardInputFile(QProcess::nullDevice()); // nobody answers a question
    programa.setProcessChannelMode(QProcess::ForwardedChannels);
    programa.start(u"unzip"_s, {u"-q"_s, textoDe(zip), u"-d"_s, textoDe(carpeta)});
    return programa.waitForFinished(60000) && programa.exitStatus() == QProcess::NormalExit
           && programa.exitCode() == 0;
}

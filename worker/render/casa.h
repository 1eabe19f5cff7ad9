// SPDX-License-Identifier: MIT
// A home folder of the engine's own. Otherwise it makes a certificate store in its user's home as
// soon as it has a certificate to verify, and data bases and settings for sound when a page asks;
// the user's home is not this program's to write in.
#pragma once

#include <QString>

namespace casa {

// Makes the folder among the temporary files and has HOME name it for this process and those that
// it starts, and likewise the variables of the standard folders within. What there is of the user's
// certificates and fonts is linked from it. Gives the folder; when it cannot be made it is empty,
// and HOME names what no folder can be made in.
QString mudar();

// Removes the folder that mudar() gave.
void desalojar(const QString &carpeta);

} // namespace casa

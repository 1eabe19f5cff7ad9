// A home folder of the engine's own. It makes a certificate store in its user's home otherwise, as
// soon as it has a certificate to verify; the user's home is not this program's to write in.
#pragma once

#include <QString>

namespace casa {

// Makes the folder among the temporary files and has HOME name it for this process and those that
// it starts. What there is of the user's certificates and fonts is linked from it; the standard
// folders that are named after HOME stay where they were. Gives the folder; when it cannot be made
// it is empty, and HOME names what no folder can be made in.
QString mudar();

// Removes the folder that mudar() gave.
void desalojar(const QString &carpeta);

} // namespace casa

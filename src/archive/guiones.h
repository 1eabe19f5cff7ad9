// Scripts appended to the end of stored pages, after the page's own closing tags.
#pragma once

#include <QString>

namespace guiones {

// Fills the school's details into a student document from "configuracion.txt": twelve strings,
// one directly after the other.
QString documento();

} // namespace guiones

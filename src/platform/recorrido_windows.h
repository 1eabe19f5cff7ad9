// SPDX-License-Identifier: MIT
// What an entry of a folder is by what Windows tells of it: a plain function.
#pragma once

#include "platform/recorrido.h"

namespace recorrido {

// `atributos`: FILE_ATTRIBUTE_*. `etiqueta`: IO_REPARSE_TAG_*, which counts where they say that
// there is one. A junction and a symbolic link lead to another place; what else has such a tag, a
// file in the cloud for one, is what its attributes say.
Clase claseDe(quint32 atributos, quint32 etiqueta);

} // namespace recorrido

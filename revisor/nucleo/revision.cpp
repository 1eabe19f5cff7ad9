// SPDX-License-Identifier: MIT
#include "revisor/Revision.h"

#include <algorithm>

int Resultado::cuantos(Gravedad gravedad) const
{
    return static_cast<int>(
        std::count_if(hallazgos.begin(), hallazgos.end(), [gravedad](const Hallazgo &hallazgo) {
            return hallazgo.regla->gravedad == gravedad;
        }));
}

Resultado revisar(const std::filesystem::path &carpeta, const Avance &avance,
                  const std::stop_token &parar)
{
    Resultado resultado;
    resultado.carpeta = carpeta;
    if (parar.stop_requested())
        resultado.veredicto = Veredicto::Detenida;
    if (avance)
        avance(0, 0);
    return resultado;
}

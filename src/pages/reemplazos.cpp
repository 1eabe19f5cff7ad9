// SPDX-License-Identifier: MIT
#include "pages/reemplazos.h"
#include "Buscador.h"
#include "platform/codepage.h"

#include <algorithm>
#include <vector>

namespace {

std::vector<qsizetype> lugaresDe(const Buscador &buscador, const QByteArray &pagina,
                                 Reemplazo::Cuantos cuantos)
{
    std::vector<qsizetype> lugares;
    qsizetype lugar = buscador.hallar(pagina, 0);
    while (lugar >= 0) {
        lugares.push_back(lugar);
        if (cuantos == Reemplazo::SoloElPrimero)
            break;
        lugar = buscador.hallar(pagina, lugar + buscador.largo());
    }
    return lugares;
}

// What stands at the places gives way to something shorter or as long. Each stretch between them is
// moved once, from the front on.
void acortar(QByteArray &pagina, const std::vector<qsizetype> &lugares, qsizetype largo,
             const QByteArray &poner)
{
    char *const inicio = pagina.data();
    char *salida = inicio + lugares.front();
    for (std::size_t i = 0; i < lugares.size(); ++i) {
        salida = std::copy(poner.begin(), poner.end(), salida);
        const qsizetype hasta = i + 1 < lugares.size() ? lugares[i + 1] : pagina.size();
        salida = std::copy(inicio + lugares[i] + largo, inicio + hasta, salida);
    }
    pagina.truncate(salida - inicio);
}

// The same with something longer: room is made at the end, and the stretches move from the back on.
void alargar(QByteArray &pagina, const std::vector<qsizetype> &lugares, qsizetype largo,
             const QByteArray &poner)
{
    qsizetype hasta = pagina.size();
    pagina.resize(hasta + static_cast<qsizetype>(lugares.size()) * (poner.size() - largo));
    char *const inicio = pagina.data();
    char *salida = inicio + pagina.size();
    for (auto lugar = lugares.rbegin(); lugar != lugares.rend(); ++lugar) {
        salida = std::copy_backward(inicio + *lugar + largo, inicio + hasta, salida);
        salida = std::copy_backward(poner.begin(), poner.end(), salida);
        hasta = *lugar;
    }
}

} // namespace

QByteArray localizar(QByteArray pagina, std::span<const Reemplazo> filas, const Valores &valores)
{
    for (const Reemplazo &fila : filas) {
        const Buscador buscador(completar(fila.buscar, valores), fila.letras);
        const std::vector<qsizetype> lugares = lugaresDe(buscador, pagina, fila.cuantos);
        if (lugares.empty())
            continue;
        const QByteArray poner = codepage::aBytes(completar(fila.poner, valores));
        if (poner.size() <= buscador.largo())
            acortar(pagina, lugares, buscador.largo(), poner);
        else
            alargar(pagina, lugares, buscador.largo(), poner);
    }
    return pagina;
}

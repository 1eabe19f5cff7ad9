// SPDX-License-Identifier: MIT
#include "worker/render/codigo.h"

#include <cstddef>
#include <cstdint>
#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

// Whole pages within the segment only; those at its ends may belong to a writable one too.
void soltarTramo(std::uintptr_t comienzo, std::size_t largo)
{
    const auto pagina = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const std::uintptr_t desde = (comienzo + pagina - 1) / pagina * pagina;
    const std::uintptr_t hasta = (comienzo + largo) / pagina * pagina;
    if (hasta <= desde)
        return;
    // The loader tells addresses as numbers.
    void *lugar = reinterpret_cast<void *>(desde); // NOLINT(performance-no-int-to-ptr)
    // What is refused stays, and does no harm.
    [[maybe_unused]] const int dicho = madvise(lugar, hasta - desde, MADV_DONTNEED);
}

int soltarDe(dl_phdr_info *objeto, std::size_t, void *)
{
    for (int i = 0; i < objeto->dlpi_phnum; ++i) {
        const ElfW(Phdr) &tramo = objeto->dlpi_phdr[i];
        if (tramo.p_type == PT_LOAD && (tramo.p_flags & PF_W) == 0)
            soltarTramo(objeto->dlpi_addr + tramo.p_vaddr, tramo.p_filesz);
    }
    return 0;
}

} // namespace

void codigo::soltar()
{
    dl_iterate_phdr(soltarDe, nullptr);
}

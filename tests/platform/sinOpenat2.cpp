// SPDX-License-Identifier: MIT
// Runs a program as on a system that does not know the call openat2, or on one whose sandbox keeps
// it from programs: the call fails in the program and in all that it starts.
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <iterator>

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/openat2.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool quitarLlamada()
{
    sock_filter pasos[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_openat2, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog programa = {static_cast<unsigned short>(std::size(pasos)), pasos};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0
           && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &programa) == 0;
}

bool llamadaFalta()
{
    open_how como = {};
    como.flags = O_PATH;
    return ::syscall(SYS_openat2, AT_FDCWD, "/", &como, sizeof como) == -1 && errno == ENOSYS;
}

} // namespace

int main(int cuantos, char **argumentos)
{
    if (cuantos < 2 || !quitarLlamada() || !llamadaFalta()) {
        std::perror("openat2 cannot be taken away");
        return 1;
    }
    ::execv(argumentos[1], argumentos + 1);
    std::perror(argumentos[1]);
    return 1;
}

#include "platform/HttpClient.h"
#include "platform/HttpClientSistema.h"

#include <csignal>

#include <fcntl.h>

QString HttpClient::autoridadesDelSistema()
{
    return QStringLiteral("/etc/ssl/certs/ca-certificates.crt");
}

namespace HttpClientSistema {

void preparar()
{
    std::signal(SIGPIPE, SIG_IGN);
}

void noHeredar(int conexion)
{
    const int marcas = ::fcntl(conexion, F_GETFD);
    if (marcas >= 0)
        ::fcntl(conexion, F_SETFD, marcas | FD_CLOEXEC);
}

} // namespace HttpClientSistema

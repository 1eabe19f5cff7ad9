#include "demostracion/relevo.h"

#include <httplib.h>

#include <chrono>
#include <semaphore>
#include <stdexcept>
#include <thread>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// The library listens with a backlog of five: a sixth connection at once would have its first
// packet dropped and try again a second later.
constexpr int aLaVez = 4;

} // namespace

namespace demo {

struct Relevo::Interno {
    std::counting_semaphore<aLaVez> turno{aLaVez};
    httplib::Server servidor;
    std::thread hilo;
    int puerto = 0;
};

// The HTTP library tidies targets up: it decodes them as UTF-8 and refuses some. So the target
// travels inwards in a header of its own, in hexadecimal because header values get decoded too,
// and one handler serves them all.
Relevo::Relevo(Rutas &rutas) : d(std::make_unique<Interno>())
{
    d->servidor.new_task_queue = [] {
        return new httplib::ThreadPool(aLaVez);
    };
    d->servidor.set_tcp_nodelay(true);
    d->servidor.Get(".*", [&rutas](const httplib::Request &pedido, httplib::Response &res) {
        const std::string destino = pedido.get_header_value("X-Destino");
        const Respuesta respuesta = rutas.responder(QByteArray::fromHex(
            QByteArray(destino.data(), static_cast<qsizetype>(destino.size()))));
        res.status = respuesta.estado;
        res.set_content(respuesta.cuerpo.toStdString(), respuesta.tipo.constData());
    });
    d->puerto = d->servidor.bind_to_any_port("127.0.0.1");
    if (d->puerto <= 0)
        throw std::runtime_error("no loopback port for the demonstration service");
    d->hilo = std::thread([this] { d->servidor.listen_after_bind(); });
    // Stopping a server that has not begun to run does nothing: the destructor may come at once.
    while (!d->servidor.is_running())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

Relevo::~Relevo()
{
    d->servidor.stop();
    d->hilo.join();
}

QByteArray Relevo::pedir(const QByteArray &metodo, const QByteArray &destino,
                         const QByteArray &comprimir) const
{
    QByteArray pedido = metodo
                        + " / HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: close\r\nX-Destino: "
                        + destino.toHex() + "\r\n";
    if (!comprimir.isEmpty())
        pedido += "Accept-Encoding: " + comprimir + "\r\n";
    pedido += "\r\n";

    d->turno.acquire();
    const int zocalo = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in donde{};
    donde.sin_family = AF_INET;
    donde.sin_port = htons(static_cast<uint16_t>(d->puerto));
    donde.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    QByteArray respuesta;
    if (connect(zocalo, reinterpret_cast<sockaddr *>(&donde), sizeof donde) == 0) {
        // A head is some hundred bytes: the socket's buffer takes it in one piece.
        if (send(zocalo, pedido.constData(), static_cast<size_t>(pedido.size()), MSG_NOSIGNAL)
            == pedido.size()) {
            char trozo[16384];
            ssize_t n = 0;
            while ((n = recv(zocalo, trozo, sizeof trozo, 0)) > 0)
                respuesta.append(trozo, n);
        }
    }
    close(zocalo);
    d->turno.release();
    return respuesta;
}

} // namespace demo

// SPDX-License-Identifier: MIT
#include "clienteCrudo.h"
#include "demostracion/ServicioDemo.h"

#include <QGuiApplication>
#include <QTest>

#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

template <auto borra>
struct Borra {
    template <class T>
    void operator()(T *cosa) const
    {
        borra(cosa);
    }
};
using Contexto = std::unique_ptr<SSL_CTX, Borra<SSL_CTX_free>>;
using Sesion = std::unique_ptr<SSL_SESSION, Borra<SSL_SESSION_free>>;
using Tls = std::unique_ptr<SSL, Borra<SSL_free>>;

Contexto clienteQueConfiaEn(const QByteArray &pem)
{
    Contexto contexto(SSL_CTX_new(TLS_client_method()));
    SSL_CTX_set_verify(contexto.get(), SSL_VERIFY_PEER, nullptr);
    const std::unique_ptr<BIO, Borra<BIO_free_all>> memoria(
        BIO_new_mem_buf(pem.constData(), static_cast<int>(pem.size())));
    if (X509 *autoridad = PEM_read_bio_X509(memoria.get(), nullptr, nullptr, nullptr)) {
        X509_STORE_add_cert(SSL_CTX_get_cert_store(contexto.get()), autoridad);
        X509_free(autoridad);
    }
    return contexto;
}

struct Resultado {
    bool saludo = false;
    bool reanudada = false;
    bool finEnOrden = false;
    QByteArray respuesta;
    Sesion sesion;
};

// `host` is the name that the certificate has to prove: an address or a name.
Resultado conversar(SSL_CTX *contexto, const QString &base, const char *host,
                    SSL_SESSION *sesion = nullptr)
{
    Resultado resultado;
    const ClienteCrudo cliente(base);
    const Tls tls(SSL_new(contexto));
    SSL_set_fd(tls.get(), static_cast<int>(cliente.zocalo));
    X509_VERIFY_PARAM *exige = SSL_get0_param(tls.get());
    if (X509_VERIFY_PARAM_set1_ip_asc(exige, host) != 1)
        SSL_set1_host(tls.get(), host);
    if (sesion)
        SSL_set_session(tls.get(), sesion);
    resultado.saludo = SSL_connect(tls.get()) == 1;
    if (!resultado.saludo)
        return resultado;
    const QByteArray pedido =
        "GET /querys/tessarin/tomarValor.php?idcolegio=123&campo=CDANE HTTP/1.1\r\nHost: x\r\n\r\n";
    SSL_write(tls.get(), pedido.constData(), static_cast<int>(pedido.size()));
    char trozo[4096];
    int n = 0;
    while ((n = SSL_read(tls.get(), trozo, sizeof trozo)) > 0)
        resultado.respuesta.append(trozo, n);
    resultado.finEnOrden = SSL_get_error(tls.get(), n) == SSL_ERROR_ZERO_RETURN;
    resultado.reanudada = SSL_session_reused(tls.get()) == 1;
    resultado.sesion.reset(SSL_get1_session(tls.get()));
    SSL_shutdown(tls.get()); // a session that was not ended is not taken up again
    return resultado;
}

} // namespace

class tst_tls : public QObject {
    Q_OBJECT

    ServicioDemo m_servicio{{}, ServicioDemo::Modo::Https};

private Q_SLOTS:
    void init()
    {
        m_servicio.quitarFallas();
        m_servicio.olvidarPeticiones();
    }
    void autoridad_verificaElServicio_data();
    void autoridad_verificaElServicio();
    void otraAutoridad_noVerifica();
    void otroNombre_noVerifica();
    void tls11_rechazado();
    void segundaConexion_reanudaLaSesion_data();
    void segundaConexion_reanudaLaSesion();
    void peticion_quedaDescifrada();
    void cierraEnMedio_terminaSinDespedida();
    void textoClaro_noEsAtendido();
    void http_noTieneAutoridad();
};

void tst_tls::autoridad_verificaElServicio_data()
{
    QTest::addColumn<QByteArray>("host");
    QTest::newRow("direccion") << QByteArray("127.0.0.1");
    QTest::newRow("nombre") << QByteArray("localhost");
}

void tst_tls::autoridad_verificaElServicio()
{
    QFETCH(QByteArray, host);
    QVERIFY(m_servicio.base().startsWith("https://127.0.0.1:"_L1));
    const Contexto contexto = clienteQueConfiaEn(m_servicio.autoridad());
    const Resultado resultado = conversar(contexto.get(), m_servicio.base(), host.constData());
    QVERIFY(resultado.saludo);
    QVERIFY(resultado.finEnOrden);
    QCOMPARE(cuerpoDe(resultado.respuesta), QByteArray("305001012345"));
}

void tst_tls::otraAutoridad_noVerifica()
{
    const ServicioDemo otro({}, ServicioDemo::Modo::Https);
    QVERIFY(otro.autoridad() != m_servicio.autoridad());
    const Contexto contexto = clienteQueConfiaEn(otro.autoridad());
    QVERIFY(!conversar(contexto.get(), m_servicio.base(), "127.0.0.1").saludo);
}

void tst_tls::otroNombre_noVerifica()
{
    const Contexto contexto = clienteQueConfiaEn(m_servicio.autoridad());
    QVERIFY(!conversar(contexto.get(), m_servicio.base(), "servicio.example").saludo);
}

void tst_tls::tls11_rechazado()
{
    const Contexto contexto = clienteQueConfiaEn(m_servicio.autoridad());
    SSL_CTX_set_security_level(contexto.get(), 0);
    SSL_CTX_set_min_proto_version(contexto.get(), TLS1_VERSION);
    SSL_CTX_set_max_proto_version(contexto.get(), TLS1_1_VERSION);
    QVERIFY(!conversar(contexto.get(), m_servicio.base(), "127.0.0.1").saludo);
}

void tst_tls::segundaConexion_reanudaLaSesion_data()
{
    QTest::addColumn<int>("version");
    QTest::newRow("1.2") << TLS1_2_VERSION;
    QTest::newRow("1.3") << TLS1_3_VERSION;
}

void tst_tls::segundaConexion_reanudaLaSesion()
{
    QFETCH(int, version);
    const Contexto contexto = clienteQueConfiaEn(m_servicio.autoridad());
    SSL_CTX_set_min_proto_version(contexto.get(), version);
    SSL_CTX_set_max_proto_version(contexto.get(), version);
    const Resultado primera = conversar(contexto.get(), m_servicio.base(), "127.0.0.1");
    const Resultado segunda =
        conversar(contexto.get(), m_servicio.base(), "127.0.0.1", primera.sesion.get());
    QVERIFY(!primera.reanudada);
    QVERIFY(segunda.reanudada);
    QCOMPARE(cuerpoDe(segunda.respuesta), QByteArray("305001012345"));
}

void tst_tls::peticion_quedaDescifrada()
{
    const Contexto contexto = clienteQueConfiaEn(m_servicio.autoridad());
    conversar(contexto.get(), m_servicio.base(), "127.0.0.1");
    QCOMPARE(m_servicio.peticiones().first().bytes,
             QByteArray("GET /querys/tessarin/tomarValor.php?idcolegio=123&campo=CDANE "
                        "HTTP/1.1\r\nHost: x\r\n\r\n"));
}

void tst_tls::cierraEnMedio_terminaSinDespedida()
{
    m_servicio.fallar("CDANE", {Falla::CierraEnMedio});
    const Contexto contexto = clienteQueConfiaEn(m_servicio.autoridad());
    const Resultado resultado = conversar(contexto.get(), m_servicio.base(), "127.0.0.1");
    QVERIFY(!resultado.finEnOrden);
    QCOMPARE(largoDe(resultado.respuesta), 12);
    QCOMPARE(cuerpoDe(resultado.respuesta), QByteArray("305001"));
}

void tst_tls::textoClaro_noEsAtendido()
{
    pedir(m_servicio.base(), "/nada");
    QCOMPARE(m_servicio.peticiones().size(), 0);
}

void tst_tls::http_noTieneAutoridad()
{
    const ServicioDemo claro;
    QVERIFY(claro.autoridad().isEmpty());
    QVERIFY(claro.base().startsWith("http://127.0.0.1:"_L1));
}

QTEST_MAIN(tst_tls)
#include "tst_tls.moc"

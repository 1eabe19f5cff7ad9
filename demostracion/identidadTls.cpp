// SPDX-License-Identifier: MIT
#include "demostracion/identidadTls.h"

#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <stdexcept>

namespace {

template <auto borra>
struct Borra {
    template <class T>
    void operator()(T *cosa) const
    {
        borra(cosa);
    }
};
using Llave = std::unique_ptr<EVP_PKEY, Borra<EVP_PKEY_free>>;
using Certificado = std::unique_ptr<X509, Borra<X509_free>>;

constexpr long unDia = 24L * 60 * 60;

void exigir(bool hecho)
{
    if (!hecho)
        throw std::runtime_error("OpenSSL could not make the demonstration's certificate");
}

void extension(X509 *certificado, X509 *emisor, int cual, const char *valor)
{
    X509V3_CTX contexto;
    X509V3_set_ctx(&contexto, emisor, certificado, nullptr, nullptr, 0);
    X509_EXTENSION *una = X509V3_EXT_conf_nid(nullptr, &contexto, cual, valor);
    exigir(una != nullptr);
    X509_add_ext(certificado, una, -1);
    X509_EXTENSION_free(una);
}

Certificado emitir(EVP_PKEY *llave, const char *nombre, long desdeDia, long hastaDia)
{
    Certificado nuevo(X509_new());
    exigir(nuevo != nullptr);
    X509_set_version(nuevo.get(), X509_VERSION_3);
    // Each run's authority has a serial of its own, or a browser would take two runs for one
    // authority that issues two certificates under the same number.
    unsigned char serie[8];
    exigir(RAND_bytes(serie, sizeof serie) == 1);
    uint64_t numero = 0;
    for (const unsigned char byte : serie)
        numero = numero << 8 | byte;
    ASN1_INTEGER_set_uint64(X509_get_serialNumber(nuevo.get()), numero >> 1 | 1);
    X509_gmtime_adj(X509_getm_notBefore(nuevo.get()), desdeDia * unDia);
    X509_gmtime_adj(X509_getm_notAfter(nuevo.get()), hastaDia * unDia);
    X509_set_pubkey(nuevo.get(), llave);
    X509_NAME_add_entry_by_txt(X509_get_subject_name(nuevo.get()), "CN", MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char *>(nombre), -1, -1, 0);
    return nuevo;
}

} // namespace

namespace demo {

void BorraContexto::operator()(ssl_ctx_st *contexto) const
{
    SSL_CTX_free(contexto);
}

IdentidadTls crearIdentidadTls(Vigencia vigencia)
{
    const Llave llaveAutoridad(EVP_EC_gen("P-256"));
    const Llave llave(EVP_EC_gen("P-256"));
    exigir(llaveAutoridad && llave);

    const Certificado autoridad =
        emitir(llaveAutoridad.get(), "Autoridad de la escuela de demostración", -30, 365);
    X509_set_issuer_name(autoridad.get(), X509_get_subject_name(autoridad.get()));
    extension(autoridad.get(), autoridad.get(), NID_basic_constraints, "critical,CA:TRUE");
    extension(autoridad.get(), autoridad.get(), NID_key_usage, "critical,keyCertSign,cRLSign");
    extension(autoridad.get(), autoridad.get(), NID_subject_key_identifier, "hash");
    exigir(X509_sign(autoridad.get(), llaveAutoridad.get(), EVP_sha256()) > 0);

    const long desde = vigencia == Vigencia::Futura ? 1 : vigencia == Vigencia::Pasada ? -20 : -1;
    const long hasta = vigencia == Vigencia::Pasada ? -1 : 365;
    const Certificado propio = emitir(llave.get(), "127.0.0.1", desde, hasta);
    X509_set_issuer_name(propio.get(), X509_get_subject_name(autoridad.get()));
    extension(propio.get(), autoridad.get(), NID_basic_constraints, "critical,CA:FALSE");
    extension(propio.get(), autoridad.get(), NID_key_usage, "critical,digitalSignature");
    extension(propio.get(), autoridad.get(), NID_ext_key_usage, "serverAuth");
    extension(propio.get(), autoridad.get(), NID_subject_alt_name, "IP:127.0.0.1,DNS:localhost");
    extension(propio.get(), autoridad.get(), NID_authority_key_identifier, "keyid");
    exigir(X509_sign(propio.get(), llaveAutoridad.get(), EVP_sha256()) > 0);

    IdentidadTls identidad;
    identidad.contexto.reset(SSL_CTX_new(TLS_server_method()));
    SSL_CTX *contexto = identidad.contexto.get();
    exigir(contexto != nullptr);
    SSL_CTX_set_min_proto_version(contexto, TLS1_2_VERSION);
    exigir(SSL_CTX_use_certificate(contexto, propio.get()) == 1
           && SSL_CTX_use_PrivateKey(contexto, llave.get()) == 1);
    // Session tickets are on from the start; without an id of its context a server refuses to
    // resume some sessions.
    static const unsigned char sesion[] = "escuela";
    SSL_CTX_set_session_id_context(contexto, sesion, sizeof sesion - 1);

    const std::unique_ptr<BIO, Borra<BIO_free_all>> pem(BIO_new(BIO_s_mem()));
    exigir(pem && PEM_write_bio_X509(pem.get(), autoridad.get()) == 1);
    char *texto = nullptr;
    const long largo = BIO_get_mem_data(pem.get(), &texto);
    identidad.autoridad = QByteArray(texto, largo);
    return identidad;
}

} // namespace demo

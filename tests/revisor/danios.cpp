// SPDX-License-Identifier: MIT
#include "revisor/danios.h"
#include "pages/guiones.h"

#include <QBuffer>
#include <QImage>

#include <map>

namespace danios {
int pasoDe(const QString &ruta)
{
    const QStringList orden = {u"archivos/jscript/"_s,
                               u"configuracion.txt"_s,
                               u"archivos/images/labels/"_s,
                               u"archivos/images/"_s,
                               u"index.html"_s,
                               u"archivos/salones/"_s,
                               u"archivos/consolidadoN/"_s,
                               u"archivos/consolidadoF/"_s,
                               u"archivos/infoFinal/"_s,
                               u"archivos/certificados/"_s,
                               u"archivos/matriculas/"_s,
                               u"archivos/infoAlumnos/"_s,
                               u"archivos/fotos/"_s};
    for (qsizetype i = 0; i < orden.size(); ++i) {
        if (ruta.startsWith(orden[i]))
            return orden[i].endsWith(u"labels/"_s) ? 100 : static_cast<int>(i);
    }
    return 200;
}

const QByteArray guionDeDocumento = guiones::documento.toLatin1();
const QByteArray paginaAusente = "<!DOCTYPE html>\r\n<html lang=\"es\"><head><title>P\xE1gina no "
                                 "encontrada</title></head><body><h1>P\xE1gina no "
                                 "encontrada</h1></body></html>\r\n";
const QByteArray mantenimiento = "<html><head><title>Aviso</title></head><body><p>Estamos "
                                 "mejorando para usted. Vuelva m\xE1s tarde.</p></body></html>";

void Taller::fechar(std::chrono::hours haceCuanto) const
{
    std::multimap<int, fs::path> enOrden;
    for (const auto &una : fs::recursive_directory_iterator(carpeta)) {
        if (una.is_regular_file())
            enOrden.emplace(pasoDe(textoDe(fs::relative(una.path(), carpeta))), una.path());
    }
    auto cuando = fs::file_time_type::clock::now() - haceCuanto;
    for (const auto &[paso, ruta] : enOrden)
        fs::last_write_time(ruta, cuando += std::chrono::milliseconds(700));
}

void envejecer(const fs::path &ruta)
{
    fs::last_write_time(ruta, fs::last_write_time(ruta) - std::chrono::hours(24 * 30));
}

QByteArray pngDe(int ancho, int alto)
{
    QImage imagen(8, 8, QImage::Format_RGB32);
    imagen.fill(Qt::red);
    QByteArray bytes;
    QBuffer memoria(&bytes);
    [[maybe_unused]] const bool abierta = memoria.open(QIODevice::WriteOnly);
    imagen.save(&memoria, "PNG");
    // The header's own sum must be right for the size to be read at all.
    const auto numero = [](int n) {
        return QByteArray::fromHex(QByteArray::number(n, 16).rightJustified(8, '0'));
    };
    bytes.replace(16, 8, numero(ancho) + numero(alto));
    quint32 suma = 0xFFFFFFFFU;
    for (const char c : bytes.mid(12, 17)) {
        suma ^= static_cast<unsigned char>(c);
        for (int i = 0; i < 8; ++i)
            suma = (suma >> 1) ^ ((suma & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    bytes.replace(29, 4, QByteArray::fromHex(QByteArray::number(~suma, 16).rightJustified(8, '0')));
    return bytes;
}

Danio quitar(const char *nombre, reglas::Cual regla, const QString &ruta)
{
    return {nombre, regla, [ruta](Taller &t) {
                t.borrar(ruta);
                return Blanco{ruta};
            }};
}

Danio configurar(const char *nombre, reglas::Cual regla,
                 const std::function<QByteArray(QByteArray)> &cambiar)
{
    return {nombre, regla, [cambiar](Taller &t) {
                t.escribir(u"configuracion.txt"_s, cambiar(t.leer(u"configuracion.txt"_s)));
                return Blanco{u"configuracion.txt"_s};
            }};
}

QByteArray conValor(QByteArray guion, const QByteArray &nombre, const QByteArray &valor)
{
    const qsizetype desde = guion.indexOf("var " + nombre + " = \"") + nombre.size() + 8;
    const qsizetype hasta = guion.indexOf("\";\r\n", desde);
    return guion.replace(desde, hasta - desde, valor);
}

Danio ponerImagen(const char *nombre, reglas::Cual regla, const QString &ruta,
                  const std::function<QByteArray(QByteArray)> &cambiar)
{
    return {nombre, regla, [ruta, cambiar](Taller &t) {
                const Blanco b = ruta.isEmpty() ? t.foto() : Blanco{ruta};
                t.escribir(b.archivo, cambiar(t.leer(b.archivo)));
                return b;
            }};
}

} // namespace danios

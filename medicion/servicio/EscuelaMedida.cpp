// SPDX-License-Identifier: MIT
#include "EscuelaMedida.h"

#include <charconv>

namespace {

constexpr std::string_view entreFilas = "\xAE";
constexpr std::size_t largoDeGuion = 90 * 1024; // of a script library
constexpr std::size_t largoDeImagen = 12 * 1024;

// The value of a query's parameter; nothing when it has none.
std::string_view parametro(std::string_view consulta, std::string_view nombre)
{
    while (!consulta.empty()) {
        const auto fin = consulta.find('&');
        const auto par = consulta.substr(0, fin);
        const auto igual = par.find('=');
        if (igual != par.npos && par.substr(0, igual) == nombre)
            return par.substr(igual + 1);
        if (fin == consulta.npos)
            break;
        consulta.remove_prefix(fin + 1);
    }
    return {};
}

// The nth segment of a path, counted from 0 after the first slash.
std::string_view tramo(std::string_view ruta, int cual)
{
    for (; !ruta.empty(); --cual) {
        ruta.remove_prefix(1);
        const auto fin = ruta.find('/');
        if (cual == 0)
            return ruta.substr(0, fin);
        if (fin == ruta.npos)
            break;
        ruta.remove_prefix(fin);
    }
    return {};
}

// A picture that every viewer takes: one white dot, and bytes after its end that none reads.
std::string imagen()
{
    using namespace std::string_literals;
    std::string gif = "GIF89a\1\0\1\0\200\0\0\377\377\377\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;"s;
    gif.resize(largoDeImagen);
    return gif;
}

std::string guion()
{
    std::string texto = "window.$=window.$||function(){return{ready:function(){},html:function(){}"
                        "}};\n";
    while (texto.size() < largoDeGuion)
        texto += "/* " + std::string(72, '.') + " */\n";
    return texto;
}

// Rows such as the service's tables have: mostly ASCII, accented letters, now and then one of the
// characters that Windows-1252 keeps where Latin-1 has none.
void rellenar(std::string &texto, std::size_t largo)
{
    static constexpr std::string_view filas[] = {
        "<tr><td class=\"izq\">&emsp;EDUCACI\xD3N F\xCDSICA</td><td>2</td><td>3.4</td><td "
        "class=\"bajo\">2.8</td><td>4.1</td><td>3.9</td><td>3.6</td><td>B\xE1sico</td>"
        "<td>1</td></tr>\r\n",
        "<tr class=\"area\"><td class=\"izq\" colspan=\"6\">HUMANIDADES \x96 LENGUA</td>"
        "<td>4.0</td><td>Alto</td><td></td></tr>\r\n",
        "<tr><td class=\"izq\">&emsp;CIENCIAS NATURALES</td><td>4</td><td>4.4</td><td>4.8</td>"
        "<td>4.1</td><td>4.9</td><td>4.6</td><td>Superior</td><td>0</td></tr>\r\n"};
    texto.reserve(largo + 256);
    for (std::size_t cual = 0; texto.size() < largo; ++cual)
        texto += filas[cual % std::size(filas)];
}

} // namespace

EscuelaMedida::EscuelaMedida(const TamanoMedido &tamano, std::string_view base)
    : m_tamano(tamano), m_guion(guion()), m_imagen(imagen())
{
    prepararPaginas(base);
    prepararListas();
}

// Each family with the texts that its replacements look for, where the service's pages have them.
void EscuelaMedida::prepararPaginas(std::string_view base)
{
    const std::string servicio(base);
    const std::string logo =
        "<img src=\"" + servicio + "/images/colegios/123/logo.png\" alt=\"Escudo\">\r\n";
    std::string rotulos;
    for (const char *texto : {"NOTA:DEFINITIVA", "MATEM%C1TICAS", "CIENCIAS%20NATURALES",
                              "ESPA%D1OL", "HUMANIDADES", "Promedio", "Puesto"})
        rotulos += "<th><img src=\"" + servicio + "/imgTXT.php?txt=" + texto + "\"></th>\r\n";
    const std::string firmas = "<img src=\"" + servicio
                               + "/images/colegios/123/rector.png\" alt=\"Firma\"><img src=\""
                               + servicio + "/images/promovido.png\">\r\n";

    struct Fila {
        std::string_view titulo;
        std::string cabeza; // before the record's number
        std::string pie;    // at the end
    };
    const std::array<Fila, CuantasFamilias> filas = {{
        {"Sedes y salones", logo, {}},
        {"Sal\xF3n", logo + rotulos, {}},
        {"Consolidado de notas", logo + rotulos, rotulos},
        {"Consolidado de fallas", logo + rotulos, rotulos},
        {"Informe final", logo, firmas},
        {"Certificado",
         "<p>Folio: \xAE"
         "folio\xAE</p>\r\n"
             + logo,
         firmas},
        {"Hoja de matr\xED"
         "cula",
         logo + "<img src=\"" + servicio + "/jup/images/123/x.jpg\">" + "<img src=\"" + servicio
             + "/images/default-avatar.png\">\r\n",
         {}},
        {"Informaci\xF3n", {}, {}},
    }};
    for (std::size_t cual = 0; cual < filas.size(); ++cual) {
        const Fila &fila = filas[cual];
        Pagina &pagina = m_paginas[cual];
        pagina.antes = "<!DOCTYPE html>\r\n<html lang=\"es\"><head><title>";
        pagina.antes.append(fila.titulo).append("</title></head><body>\r\n").append(fila.cabeza);
        pagina.antes.append("<h1>").append(fila.titulo).append(" ");
        const std::string fin = "</table>\r\n" + fila.pie + "</body></html>\r\n";
        const std::size_t sinRelleno = pagina.antes.size() + fin.size();
        pagina.despues = "</h1>\r\n<table>\r\n";
        rellenar(pagina.despues, m_tamano.pagina > sinRelleno ? m_tamano.pagina - sinRelleno : 0);
        pagina.despues += fin;
    }
}

void EscuelaMedida::prepararListas()
{
    for (int i = 0; i < m_tamano.salones; ++i)
        m_salones.append(i ? entreFilas : "")
            .append(std::to_string(101 + i) + ",SAL\xD3N " + std::to_string(1 + i));
    for (int i = 0; i < m_tamano.alumnos; ++i)
        m_alumnos.append(i ? entreFilas : "")
            .append(std::to_string(1001 + i)
                    + ",NU\xD1"
                      "EZ P\xC9REZ ALUMNO "
                    + std::to_string(1 + i));
    // Two subjects to an area.
    for (int i = 0; i < m_tamano.materias; ++i)
        m_materias.append(i ? entreFilas : "")
            .append(std::to_string(1 + i) + ",MATERIA-" + std::to_string(1 + i) + ",\xC1REA "
                    + std::to_string(1 + i / 2));
}

EscuelaMedida::Respuesta EscuelaMedida::responder(std::string_view destino) const
{
    constexpr std::string_view consultas = "/querys/tessarin/";
    const auto pregunta = destino.find('?');
    const auto ruta = destino.substr(0, pregunta);
    const auto parametros =
        pregunta == destino.npos ? std::string_view() : destino.substr(pregunta + 1);
    if (ruta.starts_with(consultas))
        return consulta(ruta.substr(consultas.size()), parametros);
    if (ruta.starts_with("/jscript/"))
        return {200, "application/javascript", m_guion};
    if (ruta.starts_with("/images/") || ruta.starts_with("/jup/images/") || ruta == "/imgTXT.php")
        return {200, "image/gif", m_imagen};
    // "/family/123/2010/kind/number/..."
    const auto clase = tramo(ruta, 3);
    const auto id = tramo(ruta, 4);
    if (clase == "consolidado")
        return pagina(ConsolidadoN, id);
    if (clase == "consolidadof")
        return pagina(ConsolidadoF, id);
    if (clase == "hojaMatricula")
        return pagina(HojaMat, id);
    if (clase.starts_with("infoFinal"))
        return pagina(InfoFinal, id);
    if (clase.starts_with("certificado"))
        return pagina(Certificado, id);
    return {404, "text/html; charset=windows-1252", "<html>No hay tal p\xE1gina</html>"};
}

EscuelaMedida::Respuesta EscuelaMedida::consulta(std::string_view nombre,
                                                 std::string_view parametros) const
{
    const bool matriz = parametro(parametros, "tipo") == "matrix";
    if (nombre == "login.php")
        return {.cuerpo = "123,SECRETARIA,secretaria"};
    if (nombre == "tomarValor.php") {
        const auto campo = parametro(parametros, "campo");
        // Short ones are asked for four times, but for "SI" and "NO".
        return {.cuerpo = campo == "ANOACTUAL"       ? "2010"
                          : campo == "USACERTIFIN2"  ? "2"
                          : campo.starts_with("USA") ? "SI"
                                                     : "Instituci\xF3n Educativa San Mart\xEDn"};
    }
    if (nombre == "salones.php")
        return matriz ? Respuesta{.cuerpo = m_salones} : pagina(Indice, "123");
    if (nombre == "alumnos.php")
        return matriz ? Respuesta{.cuerpo = m_alumnos}
                      : pagina(Salon, parametro(parametros, "salon"));
    if (nombre == "materias.php")
        return {.cuerpo = m_materias};
    if (nombre == "infoAlumno.php")
        return pagina(InfoAlumno, parametro(parametros, "idalumno"));
    if (nombre == "existe.php") {
        const auto foto = parametro(parametros, "f");
        return {.cuerpo = tieneFoto(foto.substr(foto.rfind('/') + 1)) ? "SI" : "NO"};
    }
    return {404, "text/html; charset=windows-1252", "<html>No hay tal consulta</html>"};
}

EscuelaMedida::Respuesta EscuelaMedida::pagina(Familia familia, std::string_view id) const
{
    const Pagina &una = m_paginas[familia];
    Respuesta respuesta;
    respuesta.cuerpo.reserve(una.antes.size() + id.size() + una.despues.size());
    respuesta.cuerpo.append(una.antes).append(id).append(una.despues);
    return respuesta;
}

bool EscuelaMedida::tieneFoto(std::string_view id) const
{
    int numero = 0;
    std::from_chars(id.data(), id.data() + id.size(), numero);
    return m_tamano.fotoCada > 0 && numero % m_tamano.fotoCada == 0;
}

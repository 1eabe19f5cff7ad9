// SPDX-License-Identifier: MIT
// The school of the measuring service: nothing but its size. Every reply is worked out from the
// request's address, always the same for the same address, and cheaply: pages are made once for
// each family and get the record's number put in.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

struct TamanoMedido {
    int salones = 18;
    int alumnos = 500;
    int materias = 6;
    std::size_t pagina = 10 * 1024; // bytes of a page, as near as its record's number allows
    int fotoCada = 2;               // every nth student has a photo; 0: none has
};

class EscuelaMedida {
public:
    // `base`: scheme, host and port, which the pages' own addresses begin with.
    EscuelaMedida(const TamanoMedido &tamano, std::string_view base);

    struct Respuesta {
        int estado = 200;
        std::string_view tipo = "text/html; charset=windows-1252";
        std::string cuerpo;
    };
    // The reply to a request target.
    Respuesta responder(std::string_view destino) const;

private:
    enum Familia {
        Indice,
        Salon,
        ConsolidadoN,
        ConsolidadoF,
        InfoFinal,
        Certificado,
        HojaMat,
        InfoAlumno,
        CuantasFamilias
    };
    // A page on both sides of its record's number.
    struct Pagina {
        std::string antes;
        std::string despues;
    };

    Respuesta consulta(std::string_view pagina, std::string_view parametros) const;
    Respuesta pagina(Familia familia, std::string_view id) const;
    bool tieneFoto(std::string_view id) const;
    void prepararPaginas(std::string_view base);
    void prepararListas();

    TamanoMedido m_tamano;
    std::array<Pagina, CuantasFamilias> m_paginas;
    std::string m_salones;
    std::string m_alumnos;
    std::string m_materias;
    std::string m_guion;
    std::string m_imagen;
};

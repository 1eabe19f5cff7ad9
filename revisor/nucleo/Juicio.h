// SPDX-License-Identifier: MIT
// The judgement over an archive whose files have been read: what only their comparison shows, and
// the findings in their order.
#pragma once

#include "Lectura.h"
#include "revisor/Revision.h"

#include <QMap>

#include <array>
#include <cstddef>
#include <unordered_set>
#include <vector>

// Fewer pages of a family say nothing of one another.
inline constexpr std::size_t familiaMinima = 3;

class Juicio {
public:
    // `lecturas` holds one for each of the inventory's files, in its order. All are borrowed.
    Juicio(const Contexto &contexto, const std::vector<Lectura> &lecturas, Resultado &resultado);

    // Fills the result in.
    void juzgar();

private:
    struct Persona {
        QString id;
        QString nombre;
        QString salon;          // its key
        bool enPaginas = false; // a page links it, or it has a document that is no photo
    };
    struct Salon {
        QString id;
        QString nombre;
    };
    // A file that pages show and that is not there.
    struct Ausente {
        QString ruta;
        int primera = 0; // the first page that shows it
        int veces = 0;   // how many do
        bool recurso = false;
    };

    // juicioPersonas.cpp
    void reunirPersonas();
    void conocer(const familias::Lugar &lugar);
    void nombrarPersonas();
    void repartirEnSalones();
    void faltasDePersonas();
    void contarSecciones();

    // juicioPaginas.cpp
    void compararPaginas();
    void compararFamilia(familias::Cual familia);
    void repetidas(const std::vector<int> &paginas);
    void avisarRepetidas(const std::vector<int> &iguales);
    using Marcas = std::unordered_set<std::uint32_t>;
    Marcas marcasComunes(const std::vector<int> &paginas) const;
    std::size_t marcasEn(int pagina, const Marcas &comunes) const;
    void ajenasPorSusMarcas(const std::vector<int> &paginas);
    void sinHermanas();
    void cortadas(const std::vector<int> &paginas);
    bool algunaCierra() const;
    QByteArray cuerpoDe(int pagina) const;

    // juicioEnlaces.cpp
    void reunirAusentes();
    void faltasDeEnlaces();
    void faltasComunes();
    void juzgarAusente(const Ausente &ausente);
    bool esRoto(const Lectura::Ausencia &ausencia) const;
    void enlacesRotos();

    // juicioHechura.cpp
    using Formas = std::unordered_set<std::size_t>;
    Formas formasDe(std::size_t pagina) const;
    void reunirHechura();
    bool esDeHechura(std::size_t pagina, const QString &direccion) const;
    reglas::Cual reglaDe(const QString &ruta) const;

    // juicioFechas.cpp
    void juzgarFechas();
    bool fechasDeUnaDescarga() const;
    void avisarViejos();

    // juicioRestos.cpp
    void restos();
    void ajenos();
    void nombresDificiles();

    bool hayDescarga() const;
    void senalesDeLecturas();
    void avisar(reglas::Cual regla, const QString &archivo, const QString &detalle = {},
                int veces = 1);
    void avisarPagina(int cual, reglas::Cual regla, const QString &detalle = {});
    void ponerDueno(Hallazgo &hallazgo) const;
    void ordenar();
    void acortar();

    const Contexto &m_contexto;
    const Inventario &m_inventario;
    const std::vector<Lectura> &m_lecturas;
    Resultado &m_resultado;

    QMap<QString, Persona> m_personas; // by the keys of their ids
    QMap<QString, Salon> m_salones;
    QMap<QString, Ausente> m_ausentes;               // by the keys of their paths
    std::array<Formas, familias::Cuantas> m_hechura; // of links that are so in all pages of a kind
    std::vector<char> m_malas;                       // pages of which something is said already
    std::vector<char> m_enlazadas;                   // files that a page links
    std::vector<char> m_conocidas;                   // files that a page of the last download links
    bool m_descargado = false;
    qint64 m_inicio = 0; // of the last download
};

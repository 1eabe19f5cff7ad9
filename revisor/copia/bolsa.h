// SPDX-License-Identifier: MIT
// The texts of a bag, as RFC 8493 has them: plain functions of bytes.
#pragma once

#include <QByteArray>
#include <QDate>

#include <map>
#include <optional>

namespace bolsa {

inline constexpr char declaracion[] = "bagit.txt";
inline constexpr char datos[] = "bag-info.txt";
inline constexpr char manifiesto[] = "manifest-sha256.txt";
inline constexpr char manifiestoPropio[] = "tagmanifest-sha256.txt";
inline constexpr char leame[] = "LEAME.txt";
inline constexpr char carga[] = "data/";

// File by file: the name inside the bag, in UTF-8 with "/", and its SHA-256 sum of 32 bytes.
using Sumas = std::map<QByteArray, QByteArray>;

// The manifest of the sums, by name; a line feed, a carriage return and a "%" in a name are
// written as "%0A", "%0D" and "%25".
QByteArray escribir(const Sumas &sumas);

// Reads a manifest, with any of the three line ends. Nothing when a line is none, a name comes
// twice or leads out of the bag.
std::optional<Sumas> leer(const QByteArray &manifiesto);

// Whether the name leads to a place in the bag on every system: relative, without "..", ".", an
// empty part, a "\", a NUL, or a drive before it.
bool esSegura(const QByteArray &nombre);

QByteArray textoDeclaracion();

// What bag-info.txt says. A line end in `historico` or `programa` becomes a blank.
struct Ficha {
    QByteArray historico;
    QByteArray programa;
    QDate fecha;
    qint64 bytes = 0;
    qint64 archivos = 0;
};
QByteArray textoDatos(const Ficha &ficha);

// For whoever finds the copy years later, in Spanish.
QByteArray textoLeame(const QByteArray &historico);

} // namespace bolsa

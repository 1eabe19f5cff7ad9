// SPDX-License-Identifier: MIT
#include "familias.h"
#include "pages/guiones.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace familias {
namespace {

constexpr Localizada delColegio = {u"/images/colegios/{colegio}/"};
constexpr Localizada etiqueta = {u"/imgTXT.php?txt="};
constexpr Localizada promovido = {u"/images/promovido.png", Qt::CaseSensitive,
                                  u"..\\images\\promovido.png"};
constexpr Localizada reprobado = {u"/images/reprobado.png", Qt::CaseSensitive,
                                  u"..\\images\\reprobado.png"};
constexpr Localizada foto = {u"/jup/images/{colegio}/"};
constexpr Localizada avatar = {u"/images/default-avatar.png"};

constexpr Localizada soloColegio[] = {delColegio};
constexpr Localizada conEtiquetas[] = {delColegio, etiqueta};
constexpr Localizada conSellos[] = {delColegio, promovido, reprobado};
constexpr Localizada conFoto[] = {delColegio, foto, avatar};
constexpr Localizada conAspectos[] = {delColegio,
                                      {u"/images/apersonal.png"},
                                      {u"/images/aconvivencia.png"},
                                      {u"/images/aacademico.png"}};

constexpr QStringView finDeFoto = u"-alumno.jpg";
constexpr QStringView finDePagina = u".html";

// The kind by its folder, as names are compared on Windows.
const QHash<QString, Cual> &porCarpeta()
{
    static const QHash<QString, Cual> hallados = [] {
        QHash<QString, Cual> resultado;
        for (std::size_t i = 0; i < todas.size(); ++i)
            resultado.insert(todas[i].carpeta.toString().toCaseFolded(), static_cast<Cual>(i));
        return resultado;
    }();
    return hallados;
}

} // namespace

constexpr std::array<Familia, Cuantas> todas = {{
    {u"", u"Página de inicio", De::Colegio, {}, soloColegio},
    {u"archivos/salones", u"Salones", De::Salon, {}, conEtiquetas},
    {u"archivos/consolidadoN", u"Consolidados de notas", De::Salon, {}, conEtiquetas},
    {u"archivos/consolidadoF", u"Consolidados de fallas", De::Salon, {}, conEtiquetas},
    {u"archivos/infoFinal", u"Informes finales", De::Alumno, guiones::documento, conSellos},
    {u"archivos/certificados", u"Certificados", De::Alumno, guiones::documento, soloColegio},
    {u"archivos/matriculas", u"Hojas de matrícula", De::Alumno, guiones::documento, conFoto},
    // Stored as they came.
    {u"archivos/infoAlumnos", u"Información de alumnos", De::Alumno, {}, {}},
    {u"archivos/fotos", u"Fotos", De::Foto, {}, {}},
    {u"archivos/boletines/P1", u"Boletines, periodo 1", De::Lote, guiones::boletin, soloColegio},
    {u"archivos/boletines/P2", u"Boletines, periodo 2", De::Lote, guiones::boletin, soloColegio},
    {u"archivos/boletines/P3", u"Boletines, periodo 3", De::Lote, guiones::boletin, soloColegio},
    {u"archivos/boletines/P4", u"Boletines, periodo 4", De::Lote, guiones::boletin, soloColegio},
    {u"archivos/pazysalvos", u"Paz y salvos", De::Lote, {}, soloColegio},
    {u"archivos/planillaT", u"Planillas de trabajo", De::Lote, {}, soloColegio},
    {u"archivos/observador", u"Observadores", De::Lote, {}, conAspectos},
}};

std::optional<Lugar> lugarDe(const QString &ruta)
{
    const qsizetype barra = ruta.lastIndexOf(u'/');
    const QString nombre = ruta.mid(barra + 1);
    if (barra < 0) {
        const bool portada = nombre.compare(u"index.html", Qt::CaseInsensitive) == 0;
        return portada ? std::optional(Lugar{Portada, QString()}) : std::nullopt;
    }
    const auto hallado = porCarpeta().constFind(ruta.first(barra).toCaseFolded());
    if (hallado == porCarpeta().constEnd())
        return std::nullopt;
    const QStringView fin = hallado.value() == Fotos ? finDeFoto : finDePagina;
    if (nombre.size() <= fin.size() || !nombre.endsWith(fin, Qt::CaseInsensitive))
        return std::nullopt;
    return Lugar{hallado.value(), nombre.chopped(fin.size())};
}

QString rutaDe(Cual familia, const QString &id)
{
    if (familia == Portada)
        return u"index.html"_s;
    return todas[familia].carpeta.toString() + u'/' + id
           + (familia == Fotos ? finDeFoto : finDePagina).toString();
}

} // namespace familias

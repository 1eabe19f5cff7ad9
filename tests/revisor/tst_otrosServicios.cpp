// SPDX-License-Identifier: MIT
// Archives that nothing happened to, of services whose pages are made otherwise than those of the
// demonstration, and folders as computers leave them: not one finding that is no remark.
#include "revisor/EscuelaDePrueba.h"
#include "revisor/Revision.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

// What becomes of a page; its path is given from the archive on.
using Cambio = std::function<QByteArray(QByteArray, const QString &)>;

void cambiarPaginas(const fs::path &carpeta, const Cambio &cambio)
{
    std::vector<fs::path> paginas; // first all, since writing changes what is walked through
    for (const auto &una : fs::recursive_directory_iterator(carpeta)) {
        if (una.is_regular_file() && una.path().extension() == ".html")
            paginas.push_back(una.path());
    }
    for (const fs::path &una : paginas)
        escrito(una, cambio(leido(una), textoDe(fs::relative(una, carpeta))));
}

QStringList hallados(const Resultado &resultado)
{
    QStringList lineas;
    for (const Hallazgo &h : resultado.hallazgos) {
        if (h.regla->gravedad != Gravedad::Nota)
            lineas.append(h.regla->nombre.toString() + u' ' + h.archivo + u' ' + h.detalle);
    }
    return lineas.mid(0, 20);
}

int cuantos(const Resultado &resultado, reglas::Cual regla)
{
    return static_cast<int>(
        std::count_if(resultado.hallazgos.begin(), resultado.hallazgos.end(),
                      [&](const Hallazgo &h) { return h.regla == &reglas::todas[regla]; }));
}

} // namespace

class tst_otrosServicios : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<EscuelaDePrueba> m_escuela;
    QTemporaryDir m_personal;
    fs::path m_original;
    std::unique_ptr<QTemporaryDir> m_otra;
    fs::path m_carpeta;

private Q_SLOTS:
    void initTestCase()
    {
        m_escuela = std::make_unique<EscuelaDePrueba>(generarEscuela({2010, 3, 4, 5}));
        m_original = m_escuela->descargar(m_personal.path());
    }

    void init()
    {
        m_otra = std::make_unique<QTemporaryDir>();
        m_carpeta = fs::path(m_otra->path().toStdString()) / "123-2010";
        fs::copy(m_original, m_carpeta,
                 fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    }

    void paginasDeOtraHechura_sonCompletas_data()
    {
        QTest::addColumn<Cambio>("cambio");
        const auto sin = [](const QByteArray &que, const QByteArray &enSuLugar = {}) {
            return [=](QByteArray pagina, const QString &) {
                return pagina.replace(que, enSuLugar);
            };
        };
        QTest::newRow("no end tag") << Cambio(sin("</html>"));
        QTest::newRow("comment after the end")
            << Cambio(sin("</html>", "</html>\r\n<!-- hecha en 0,02 s -->"));
        QTest::newRow("script after the end")
            << Cambio(sin("</html>", "</html>\n<script>contar()</script>"));
    }
    void paginasDeOtraHechura_sonCompletas()
    {
        QFETCH(Cambio, cambio);
        cambiarPaginas(m_carpeta, cambio);
        const Resultado resultado = revisar(m_carpeta);
        QCOMPARE(hallados(resultado), QStringList());
        QCOMPARE(resultado.veredicto, Veredicto::Completo);
    }

    // Of one page it is damage all the same.
    void paginaSinFinEntreOtras_esCortada()
    {
        const fs::path una = m_carpeta / "archivos/infoFinal"
                             / (m_escuela->escuela.alumnos[0].id + u".html"_s).toStdString();
        escrito(una, leido(una).replace("</html>", ""));
        QCOMPARE(cuantos(revisar(m_carpeta), reglas::PaginaCortada), 1);
    }
};

QTEST_MAIN(tst_otrosServicios)
#include "tst_otrosServicios.moc"

// SPDX-License-Identifier: MIT
// What is written down about the reviewer is what it does: its rules, its JSON, its options.
#include "revisor/EscuelaDePrueba.h"
#include "revisor/informe.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_documentos : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cadaRegla_enSuRenglon();
    void cadaCampoDelJson_descrito();
    void cadaOpcion_enElManualYLaAyuda();
};

namespace {

QString documento(const char *nombre)
{
    return QString::fromUtf8(leido(std::filesystem::path(PARVANEL_FUENTES) / nombre));
}

QStringList campos(const QJsonObject &objeto)
{
    QStringList nombres = objeto.keys();
    for (const QJsonValue &valor : objeto) {
        if (valor.isArray())
            nombres += campos(valor[0].toObject());
    }
    return nombres;
}

QSet<QString> opciones(const QString &texto)
{
    static const QRegularExpression forma(u"--[a-z]+"_s);
    QSet<QString> halladas;
    for (auto hallada = forma.globalMatch(texto); hallada.hasNext();)
        halladas.insert(hallada.next().captured());
    return halladas;
}

} // namespace

void tst_documentos::cadaRegla_enSuRenglon()
{
    const QStringList renglones = documento("docs/review.md").split(u'\n');
    const qsizetype desde = renglones.indexOf(u"## Rules"_s) + 4; // its heading, a gap, the table's
    for (std::size_t i = 0; i < reglas::todas.size(); ++i) {
        const Regla &regla = reglas::todas.at(i);
        const QString gravedad = regla.gravedad == Gravedad::Falta   ? u"falta"_s
                                 : regla.gravedad == Gravedad::Danio ? u"danio"_s
                                                                     : u"nota"_s;
        QCOMPARE(renglones.value(desde + static_cast<qsizetype>(i)),
                 u"| `%1` | `%2` | %3 | %4 |"_s.arg(regla.nombre.toString(), gravedad,
                                                    regla.texto.toString(),
                                                    regla.queHacer.toString()));
    }
    QCOMPARE(renglones.value(desde + static_cast<qsizetype>(reglas::todas.size())), QString());
}

void tst_documentos::cadaCampoDelJson_descrito()
{
    Resultado resultado;
    resultado.hallazgos = {{.regla = &reglas::todas.front()}};
    resultado.secciones = {{.nombre = u"x"_s, .carpeta = u"y"_s}};
    const QJsonObject raiz =
        QJsonDocument::fromJson(informe::enJson({resultado}, {.programa = u"p"_s, .cuando = {}}))
            .object();
    const QString texto = documento("docs/review.md");
    const QStringList nombres = campos(raiz);
    QCOMPARE(nombres.size(), 5 + 19 + 5 + 11);
    for (const QString &nombre : nombres) {
        const QRegularExpression renglon(u"^\\|[^|]*`%1`"_s.arg(QRegularExpression::escape(nombre)),
                                         QRegularExpression::MultilineOption);
        QVERIFY2(texto.contains(renglon), qUtf8Printable(nombre));
    }
}

void tst_documentos::cadaOpcion_enElManualYLaAyuda()
{
    QProcess proceso;
    proceso.start(QStringLiteral(PARVANEL_REVISOR), {u"--ayuda"_s});
    QVERIFY(proceso.waitForFinished(60000));
    const QSet<QString> deLaAyuda = opciones(QString::fromUtf8(proceso.readAll()));
    QCOMPARE(deLaAyuda,
             (QSet<QString>{u"--texto"_s, u"--json"_s, u"--html"_s, u"--copia"_s, u"--reemplazar"_s,
                            u"--comprobar"_s, u"--ayuda"_s, u"--help"_s, u"--version"_s}));
    QCOMPARE(opciones(documento("man/parvanel-revisor.1").replace(u"\\-"_s, u"-"_s)), deLaAyuda);
}

QTEST_GUILESS_MAIN(tst_documentos)
#include "tst_documentos.moc"

// SPDX-License-Identifier: MIT
// The verbs of a kind of documents that this test makes known to Windows, with a program that notes
// what it is started with.
#include "platform/Verbos.h"

#include "escenario/ProgramaDePaginas_windows.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <windows.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr auto clase = L"Parvanel.Prueba";
// Of three letters, as an ending is in a short name as well; there ".html" is ".htm", which every
// Windows takes for the same.
constexpr auto extension = L".pvn";

bool poner(const QString &clave, const QString &valor)
{
    const std::wstring texto = valor.toStdWString();
    return RegSetKeyValueW(HKEY_CLASSES_ROOT, clave.toStdWString().c_str(), nullptr, REG_SZ,
                           texto.c_str(), static_cast<DWORD>((texto.size() + 1) * sizeof(wchar_t)))
           == ERROR_SUCCESS;
}

} // namespace

class tst_VerbosWindows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void abrir_porSuVerbo();
    void imprimir_enOrdenYUnaVezCadaUno();
    void nombres_comoSon_data();
    void nombres_comoSon();
    void rutaLarga_elMismoDocumento();
    void documentoQueNoEsta_seSalta();
    void sinVerbo_nadaYSinEspera();
    void carpetaDeTrabajo_niLaDelDocumentoNiLaPropia();

private:
    struct Anotado {
        QString verbo;
        QString documento;
        QString carpeta;
    };
    QString documento(const QString &nombre) const;
    // As they were started, when there are so many; a list of another length when they do not come.
    QList<Anotado> anotados(qsizetype cuantos) const;
    static QStringList documentosDe(const QList<Anotado> &anotados)
    {
        QStringList documentos;
        for (const Anotado &uno : anotados)
            documentos.append(uno.documento);
        return documentos;
    }

    std::unique_ptr<QTemporaryDir> m_lugar;
};

void tst_VerbosWindows::initTestCase()
{
    const QString comun = QString::fromWCharArray(clase) + u"\\shell\\"_s;
    const QString programa = QDir::toNativeSeparators(QCoreApplication::applicationDirPath()
                                                      + u"/platform.anotador.exe"_s);
    QVERIFY(QFile::exists(programa));
    QVERIFY(poner(QString::fromWCharArray(extension), QString::fromWCharArray(clase)));
    for (const QString &verbo : {u"open"_s, u"print"_s})
        QVERIFY(poner(comun + verbo + u"\\command"_s,
                      u"\"%1\" %2 \"%3\""_s.arg(programa, verbo, u"%1"_s)));
}

void tst_VerbosWindows::cleanupTestCase()
{
    RegDeleteTreeW(HKEY_CLASSES_ROOT, clase);
    RegDeleteTreeW(HKEY_CLASSES_ROOT, extension);
}

void tst_VerbosWindows::init()
{
    m_lugar = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_lugar->path()).mkdir(u"notas"_s));
    const std::wstring carpeta =
        QDir::toNativeSeparators(m_lugar->filePath(u"notas"_s)).toStdWString();
    QVERIFY(SetEnvironmentVariableW(L"PARVANEL_ANOTADO", carpeta.c_str()));
}

QString tst_VerbosWindows::documento(const QString &nombre) const
{
    const QString ruta = m_lugar->filePath(nombre + QString::fromWCharArray(extension));
    QFile archivo(ruta);
    return archivo.open(QIODevice::WriteOnly) ? QDir::toNativeSeparators(ruta) : QString();
}

QList<tst_VerbosWindows::Anotado> tst_VerbosWindows::anotados(qsizetype cuantos) const
{
    QStringList lineas;
    const auto leidas = [&] {
        lineas = notasEn(m_lugar->filePath(u"notas"_s));
        return lineas.size() >= cuantos;
    };
    static_cast<void>(QTest::qWaitFor(leidas, 60000)); // the caller counts them
    QList<Anotado> todos;
    for (const QString &linea : std::as_const(lineas)) {
        const QStringList partes = linea.split(u'\t');
        if (partes.size() == 4)
            todos.append({partes[1], partes[2], partes[3]});
    }
    return todos;
}

void tst_VerbosWindows::abrir_porSuVerbo()
{
    const QString pagina = documento(u"pagina"_s);
    Verbos().abrir(pagina);
    const QList<Anotado> hechos = anotados(1);
    QCOMPARE(documentosDe(hechos), QStringList{pagina});
    QCOMPARE(hechos.first().verbo, u"open"_s);
}

void tst_VerbosWindows::imprimir_enOrdenYUnaVezCadaUno()
{
    QStringList paginas;
    Verbos verbos;
    for (int i = 0; i < 20; ++i) {
        paginas.append(documento(u"pagina %1"_s.arg(20 - i)));
        verbos.imprimir(paginas.last());
    }
    const QList<Anotado> hechos = anotados(paginas.size());
    QCOMPARE(documentosDe(hechos), paginas);
    for (const Anotado &uno : hechos)
        QCOMPARE(uno.verbo, u"print"_s);
}

void tst_VerbosWindows::nombres_comoSon_data()
{
    QTest::addColumn<QString>("nombre");
    for (const QString &nombre :
         {u"con blancos  dos"_s, u"Ñandú año"_s, u"uno & otro"_s, u"100% %PATH% %1"_s,
          u"uno, otro; tercero"_s, u"(a) [b] {c} 'd' ^ ~ @ # $ = +"_s, u"Ω 中文"_s})
        QTest::newRow(qUtf8Printable(nombre)) << nombre;
}

void tst_VerbosWindows::nombres_comoSon()
{
    QFETCH(const QString, nombre);
    const QString pagina = documento(nombre);
    QVERIFY(!pagina.isEmpty());
    Verbos verbos;
    verbos.imprimir(pagina);
    QCOMPARE(documentosDe(anotados(1)), QStringList{pagina});
    verbos.abrir(pagina);
    QCOMPARE(documentosDe(anotados(2)), (QStringList{pagina, pagina}));
}

void tst_VerbosWindows::rutaLarga_elMismoDocumento()
{
    const QString honda =
        u"honda/"_s + u"una carpeta de nombre bien largo, como las hay/"_s.repeated(6);
    QVERIFY(QDir(m_lugar->path()).mkpath(honda));
    const QString pagina = documento(honda + u"pagina"_s);
    QVERIFY(pagina.size() > MAX_PATH);
    QFile archivo(pagina);
    QVERIFY(archivo.open(QIODevice::WriteOnly) && archivo.write("lo que dice") > 0);
    archivo.close();
    for (const QString &escrita : {pagina, u"\\\\?\\"_s + pagina})
        Verbos().imprimir(escrita);
    const QList<Anotado> hechos = anotados(2);
    QCOMPARE(hechos.size(), 2);
    for (const Anotado &uno : hechos) {
        QVERIFY(uno.documento.size() < MAX_PATH);
        QFile mismo(uno.documento);
        QVERIFY(mismo.open(QIODevice::ReadOnly));
        QCOMPARE(mismo.readAll(), QByteArray("lo que dice"));
    }
}

void tst_VerbosWindows::documentoQueNoEsta_seSalta()
{
    Verbos verbos;
    verbos.imprimir(QDir::toNativeSeparators(m_lugar->filePath(u"no esta.pvn"_s)));
    verbos.imprimir(QDir::toNativeSeparators(m_lugar->path()));
    verbos.imprimir({});
    const QString pagina = documento(u"esta"_s);
    verbos.imprimir(pagina);
    QCOMPARE(documentosDe(anotados(1)), QStringList{pagina});
}

void tst_VerbosWindows::sinVerbo_nadaYSinEspera()
{
    const QString ajeno = m_lugar->filePath(u"ajeno.sin-programa-alguno"_s);
    QVERIFY(QFile(ajeno).open(QIODevice::WriteOnly));
    Verbos verbos;
    verbos.imprimir(QDir::toNativeSeparators(ajeno));
    const QString pagina = documento(u"pagina"_s);
    verbos.imprimir(pagina);
    QCOMPARE(documentosDe(anotados(1)), QStringList{pagina});
}

void tst_VerbosWindows::carpetaDeTrabajo_niLaDelDocumentoNiLaPropia()
{
    Verbos().abrir(documento(u"pagina"_s));
    const QList<Anotado> hechos = anotados(1);
    QCOMPARE(hechos.size(), 1);
    std::wstring sistema(MAX_PATH, L'\0');
    sistema.resize(GetSystemDirectoryW(sistema.data(), MAX_PATH));
    QCOMPARE(hechos.first().carpeta.toLower(), QString::fromStdWString(sistema).toLower());
}

QTEST_GUILESS_MAIN(tst_VerbosWindows)
#include "tst_VerbosWindows.moc"

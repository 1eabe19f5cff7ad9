// The temporary files that downloads are written to: what already stands under such a name, and
// what becomes of them when a process is killed.
#include "CarpetaPersonal.h"
#include "platform/DriveC.h"

#include <QTest>

#include <memory>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class tst_DescargaTemporal : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nombreTomado_tomaElSiguiente_data();
    void nombreTomado_tomaElSiguiente();
    void carpetaSacadaDelArchivo_noSePublica();

private:
    // The name of the one temporary file in the archive.
    QString temporal() const;

    std::unique_ptr<CarpetaPersonal> casa;
    std::unique_ptr<DriveC> disco;
};

void tst_DescargaTemporal::init()
{
    casa = std::make_unique<CarpetaPersonal>();
    QVERIFY(casa->hacerCarpeta(u"Quorvela"_s));
    disco = std::make_unique<DriveC>(casa->ruta());
}

void tst_DescargaTemporal::cleanup()
{
    disco.reset();
    casa.reset();
}

QString tst_DescargaTemporal::temporal() const
{
    return casa->entradas(u"Quorvela"_s).filter(u".descarga-"_s).value(0);
}

void tst_DescargaTemporal::nombreTomado_tomaElSiguiente_data()
{
    QTest::addColumn<QString>("clase");
    for (const auto &clase : {u"archivo"_s, u"enlace a un archivo"_s, u"enlace sin destino"_s,
                              u"carpeta"_s, u"tuberia"_s, u"casilla"_s})
        QTest::newRow(qPrintable(clase)) << clase;
}

// The names are easily guessed: what somebody put there is neither followed nor changed.
void tst_DescargaTemporal::nombreTomado_tomaElSiguiente()
{
    QFETCH(QString, clase);
    QVERIFY(casa->escribir(u"ajeno.txt"_s, "ajeno"));
    auto anterior = disco->recibir(u"C:\\Quorvela\\a.jpg"_s);
    QVERIFY(anterior);
    const QString usado = temporal();
    anterior.reset();
    const QString prefijo = usado.section(u'-', 0, 1) + u'-';
    const int numero = usado.section(u'-', 2).toInt();
    QVERIFY(numero > 0);
    QStringList puestos;
    for (int siguiente = numero + 1; siguiente <= numero + 3; ++siguiente) {
        const QString nombre = prefijo + QString::number(siguiente);
        const QString dentro = u"Quorvela/"_s + nombre;
        const QByteArray nativa = QFile::encodeName(casa->ruta(dentro));
        puestos.append(nombre);
        if (clase == u"archivo") {
            QVERIFY(casa->escribir(dentro, "puesto"));
        } else if (clase == u"enlace a un archivo") {
            QVERIFY(casa->enlazar(u"../ajeno.txt"_s, dentro));
        } else if (clase == u"enlace sin destino") {
            QVERIFY(casa->enlazar(u"../nuevo.txt"_s, dentro));
        } else if (clase == u"carpeta") {
            QVERIFY(casa->hacerCarpeta(dentro));
        } else {
            QCOMPARE(
                ::mknod(nativa.constData(), (clase == u"tuberia" ? S_IFIFO : S_IFSOCK) | 0600, 0),
                0);
        }
    }
    const auto entrante = disco->recibir(u"C:\\Quorvela\\a.jpg"_s);
    QVERIFY(entrante);
    QCOMPARE(entrante->dispositivo().write("foto"), 4);
    QVERIFY(entrante->publicar());
    QCOMPARE(casa->leer(u"Quorvela/a.jpg"_s), QByteArray("foto"));
    QCOMPARE(casa->entradas(u"Quorvela"_s), puestos + QStringList{u"a.jpg"_s});
    QCOMPARE(casa->entradas(), (QStringList{u"Quorvela"_s, u"ajeno.txt"_s}));
    QCOMPARE(casa->leer(u"ajeno.txt"_s), QByteArray("ajeno"));
    if (clase == u"archivo")
        QCOMPARE(casa->leer(u"Quorvela/"_s + puestos.first()), QByteArray("puesto"));
}

// A download takes its time; the folder is somewhere else when it ends.
void tst_DescargaTemporal::carpetaSacadaDelArchivo_noSePublica()
{
    QVERIFY(casa->hacerCarpeta(u"Quorvela/fotos"_s));
    QVERIFY(casa->hacerCarpeta(u"escritorio"_s));
    auto entrante = disco->recibir(u"C:\\Quorvela\\fotos\\a.jpg"_s);
    QVERIFY(entrante);
    entrante->dispositivo().write("foto");
    QVERIFY(QFile::rename(casa->ruta(u"Quorvela/fotos"_s), casa->ruta(u"escritorio/fotos"_s)));
    QVERIFY(casa->hacerCarpeta(u"Quorvela/fotos"_s));
    QVERIFY(!entrante->publicar());
    entrante.reset();
    QVERIFY(casa->entradas(u"Quorvela/fotos"_s).isEmpty());
    QVERIFY(casa->entradas(u"escritorio/fotos"_s).isEmpty());
}

QTEST_GUILESS_MAIN(tst_DescargaTemporal)
#include "tst_DescargaTemporal.moc"

// SPDX-License-Identifier: MIT
// Programs at work on one archive: what each of them writes is whole, and stands there once.
#include "UnidadDePrueba.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int procesos = 3;
constexpr int vueltas = 40;
constexpr int archivos = 4;
constexpr int salioBien = 0;
constexpr int huboEsperas = 2;

QString nombre(int cual)
{
    return u"%1.html"_s.arg(cual);
}

// Longer than what a page of memory holds, so that a write cut in two would show.
QByteArray contenido(int cual)
{
    return QByteArray(20'000, static_cast<char>('a' + cual)) + "\r\n";
}

// Writes every file over and over, as a run does. A file in the way for nearly a second, as on a
// computer that has stopped one of the others meanwhile, may be passed over.
int escribirSinParar(const QString &casa)
{
    DriveC disco(casa);
    int fin = salioBien;
    for (int vuelta = 0; vuelta < vueltas; ++vuelta) {
        for (int cual = 0; cual < archivos; ++cual) {
            const QString ruta = u"C:\\Quorvela\\"_s + nombre(cual);
            QElapsedTimer reloj;
            reloj.start();
            [[maybe_unused]] const bool borrado = disco.borrar(ruta);
            const bool escrito = disco.escribir(ruta, contenido(cual));
            if (reloj.elapsed() > 800)
                fin = huboEsperas;
            else if (!escrito)
                return 1;
        }
    }
    return fin;
}

} // namespace

class tst_DriveCWindowsProcesos : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void losMismosArchivosALaVez_quedanEnteros();

private:
    // The worst exit code of some processes at work at once.
    int escribirALaVez() const
    {
        std::vector<std::unique_ptr<QProcess>> hijos;
        for (int i = 0; i < procesos; ++i) {
            hijos.push_back(std::make_unique<QProcess>());
            hijos.back()->start(QCoreApplication::applicationFilePath(),
                                {u"--escribir"_s, m_casa->ruta()});
        }
        int peor = salioBien;
        for (const auto &hijo : hijos) {
            if (!hijo->waitForFinished(100'000) || hijo->exitStatus() != QProcess::NormalExit)
                return -1;
            if (hijo->exitCode() != salioBien && peor != 1)
                peor = hijo->exitCode();
        }
        return peor;
    }
};

void tst_DriveCWindowsProcesos::losMismosArchivosALaVez_quedanEnteros()
{
    int fin = huboEsperas;
    for (int vez = 0; vez < 10 && fin == huboEsperas; ++vez)
        fin = escribirALaVez();
    QCOMPARE(fin, salioBien);
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), archivos);
    for (int cual = 0; cual < archivos; ++cual)
        QCOMPARE(m_casa->leer(u"Quorvela/"_s + nombre(cual)), contenido(cual));
}

int main(int cuantos, char **argumentos)
{
    QCoreApplication aplicacion(cuantos, argumentos);
    const QStringList dados = QCoreApplication::arguments();
    if (dados.value(1) == u"--escribir")
        return escribirSinParar(dados.value(2));
    tst_DriveCWindowsProcesos pruebas;
    return QTest::qExec(&pruebas, cuantos, argumentos);
}

#include "tst_DriveCWindowsProcesos.moc"

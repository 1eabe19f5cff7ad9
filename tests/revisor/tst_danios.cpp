// SPDX-License-Identifier: MIT
// Damage of every kind, planted at random places of archives that are whole, by turns one of the
// demonstration school and one of a school drawn at random: each is found, with the file and the
// person concerned, and nothing else is said to be wrong. PARVANEL_REVISOR_SEMILLA chooses others.
// PARVANEL_REVISOR_HISTORICOS is a folder to leave them all in, each in one of its damage's name.
#include "revisor/danios.h"

#include <QTemporaryDir>

using namespace danios;

namespace {

QList<Danio> todos()
{
    return deGente() + deEnlaces() + dePaginas() + deImagenes() + deGuiones() + deFechasYRestos()
           + deEsteSistema();
}

} // namespace

class tst_danios : public QObject {
    Q_OBJECT
private:
    struct Original {
        std::unique_ptr<EscuelaDePrueba> escuela;
        QTemporaryDir personal;
        fs::path carpeta;
    };

    static QString nombreDe(const Escuela &escuela, const QString &id)
    {
        for (const AlumnoDemo &alumno : escuela.alumnos) {
            if (alumno.id == id)
                return alumno.nombre;
        }
        return id;
    }

    static QString nombreDeSalon(const Escuela &escuela, const QString &id)
    {
        for (const SalonDemo &salon : escuela.salones) {
            if (salon.id == id)
                return salon.nombre;
        }
        return id;
    }

    Original m_demostracion;
    Original m_alAzar;
    quint32 m_semilla = 0;

    static void hacer(Original &original, Escuela escuela, bool conLotes)
    {
        original.escuela = std::make_unique<EscuelaDePrueba>(std::move(escuela));
        original.carpeta = original.escuela->descargar(original.personal.path());
        if (conLotes)
            original.escuela->imprimir(original.personal.path());
        // Something whose name Windows reads from percent signs of its own.
        fs::copy(original.carpeta / "archivos/images/logo.png",
                 original.carpeta / "archivos/fotos" / rutaDe(u"ñandú.jpg"_s));
    }

    // A school of some size, with ids that are no numbers.
    static Escuela deVarios(QRandomGenerator &azar)
    {
        for (;;) {
            const Escuela escuela = escuelaAlAzar(azar);
            const bool raros = std::any_of(escuela.alumnos.begin(), escuela.alumnos.end(),
                                           [](const AlumnoDemo &a) { return a.id.toInt() == 0; });
            const auto conFoto = std::count_if(escuela.alumnos.begin(), escuela.alumnos.end(),
                                               [](const AlumnoDemo &a) { return a.conFoto; });
            if (raros && escuela.salones.size() >= 3 && escuela.alumnos.size() >= 8
                && escuela.alumnos.size() <= 16 && conFoto >= 2 && escuela.materias.size() >= 3)
                return escuela;
        }
    }

    static QString dondeQuedan() { return qEnvironmentVariable("PARVANEL_REVISOR_HISTORICOS"); }

    // What is left of an archive goes into a folder of its own.
    static fs::path copiar(const fs::path &original, const QString &nombre)
    {
        const fs::path carpeta = rutaDe(nombre) / "123-2010";
        fs::create_directories(carpeta.parent_path());
        fs::copy(original, carpeta, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
        return carpeta;
    }

    void probar(const Original &original, const Danio &danio, quint32 semilla)
    {
        const QTemporaryDir otra;
        const QString quedan = dondeQuedan();
        const fs::path carpeta = copiar(
            original.carpeta,
            quedan.isEmpty() ? otra.path() : quedan + u'/' + QString::fromLatin1(danio.nombre));
        const Escuela &escuela = original.escuela->escuela;
        Taller taller{escuela, carpeta, QRandomGenerator(semilla)};
        const Blanco blanco = danio.plantar(taller);
        if (QTest::currentTestFailed())
            return;
        juzgar(revisar(taller.carpeta), danio, blanco, escuela);
        // The folder's own class cannot name every file.
        if (quedan.isEmpty())
            fs::remove_all(taller.carpeta);
    }

    static void juzgar(const Resultado &resultado, const Danio &danio, const Blanco &blanco,
                       const Escuela &escuela)
    {
        const Regla &regla = reglas::todas[danio.regla];
        bool hallado = false;
        QStringList demas;
        for (const Hallazgo &h : resultado.hallazgos) {
            const bool suyo =
                h.regla == &regla && (blanco.archivo.isEmpty() || h.archivo == blanco.archivo);
            if (suyo) {
                hallado = true;
                if (regla.gravedad != Gravedad::Nota || danio.regla == reglas::DeOtraDescarga) {
                    if (!blanco.idPersona.isEmpty() && blanco.idPersona != u"99123"_s)
                        QCOMPARE(h.persona, nombreDe(escuela, blanco.idPersona));
                    QVERIFY(blanco.idPersona.isEmpty() || h.idPersona == blanco.idPersona);
                    if (!blanco.idSalon.isEmpty())
                        QCOMPARE(h.salon, nombreDeSalon(escuela, blanco.idSalon));
                }
            }
            if (h.regla->gravedad != Gravedad::Nota && h.archivo != blanco.archivo
                && !blanco.tambien.contains(h.archivo))
                demas.append(h.regla->nombre.toString() + u' ' + h.archivo + u' ' + h.detalle);
        }
        QStringList todos;
        for (const Hallazgo &h : resultado.hallazgos)
            todos.append(h.regla->nombre.toString() + u' ' + h.archivo + u' ' + h.detalle);
        QVERIFY2(hallado, qPrintable(blanco.archivo + u" among\n"_s
                                     + QStringList(todos.mid(0, 15)).join(u'\n')));
        QVERIFY2(demas.isEmpty(), qPrintable(QStringList(demas.mid(0, 10)).join(u'\n')));
        QCOMPARE(resultado.veredicto, regla.gravedad == Gravedad::Nota
                                          ? Veredicto::Completo
                                          : Veredicto::FaltanDocumentos);
    }

private Q_SLOTS:
    void initTestCase()
    {
        bool dada = false;
        m_semilla = quint32(qEnvironmentVariableIntValue("PARVANEL_REVISOR_SEMILLA", &dada));
        if (!dada)
            m_semilla = 20101;
        qInfo("PARVANEL_REVISOR_SEMILLA=%u", m_semilla);
        QRandomGenerator azar(m_semilla);
        hacer(m_demostracion, generarEscuela({2010, 2, 4, 5}), true);
        hacer(m_alAzar, deVarios(azar), false);
    }

    void originales_sonCompletos()
    {
        for (const Original *original : {&m_demostracion, &m_alAzar}) {
            const Resultado resultado = revisar(original->carpeta);
            QCOMPARE(resultado.veredicto, Veredicto::Completo);
        }
        if (const QString quedan = dondeQuedan(); !quedan.isEmpty()) {
            copiar(m_demostracion.carpeta, quedan + u"/demostracion"_s);
            copiar(m_alAzar.carpeta, quedan + u"/al azar"_s);
        }
    }

    void danio_seEncuentra_data()
    {
        QTest::addColumn<int>("cual");
        const QList<Danio> danios = todos();
        for (int i = 0; i < danios.size(); ++i)
            QTest::newRow(danios[i].nombre) << i;
        QVERIFY(danios.size() >= 60);
    }
    void danio_seEncuentra()
    {
        QFETCH(int, cual);
        const Danio danio = todos()[cual];
        const bool enUna = danio.enLotes || (m_semilla + quint32(cual)) % 2 == 0;
        probar(enUna ? m_demostracion : m_alAzar, danio, m_semilla + quint32(cual));
    }

    // Every rule has its damage; of the first two another test has it (tst_hostiles), and the
    // others every archive has, damaged or not (tst_completos).
    void reglas_tienenTodasSuDanio()
    {
        QSet<int> probadas = imposiblesAqui();
        probadas.unite({reglas::SoloImpresiones, reglas::NoSeLee, reglas::AvatarSinFoto,
                        reglas::AjustesDeBoletin, reglas::GuionDelServicio});
        for (const Danio &danio : todos())
            probadas.insert(danio.regla);
        for (int i = 0; i < reglas::Cuantas; ++i)
            QVERIFY2(probadas.contains(i),
                     qPrintable(reglas::todas[std::size_t(i)].nombre.toString()));
    }
};

QTEST_MAIN(tst_danios)
#include "tst_danios.moc"

// SPDX-License-Identifier: MIT
#include "platform/Vigilia.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QVariantMap>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr uint cierreDeSesion = 1;
constexpr uint suspension = 4;
constexpr uint deQue = cierreDeSesion | suspension; // the same numbers to both services

QDBusMessage alPortal(const QString &objeto, QLatin1StringView interfaz, const QString &metodo)
{
    return QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, objeto,
                                          QString(interfaz), metodo);
}

QDBusMessage alGestor(const QString &metodo)
{
    return QDBusMessage::createMethodCall(u"org.gnome.SessionManager"_s,
                                          u"/org/gnome/SessionManager"_s,
                                          u"org.gnome.SessionManager"_s, metodo);
}

constexpr auto peticion = "org.freedesktop.portal.Request"_L1;

// Where the portal puts the request of that name.
QString lugarDe(const QDBusConnection &bus, const QString &nombre)
{
    const QString yo = bus.baseService().mid(1).replace(u'.', u'_');
    return u"/org/freedesktop/portal/desktop/request/"_s + yo + u'/' + nombre;
}

// No start of a service that nobody uses, and no answer that anybody waits for.
void decir(QDBusConnection &bus, QDBusMessage mensaje)
{
    mensaje.setAutoStartService(false);
    [[maybe_unused]] const bool enviado = bus.send(mensaje); // without a bus there is nothing held
}

} // namespace

// Both services let go by themselves of what a connection asked for once that connection has ended:
// a process that is killed leaves nothing behind.
class Vigilia::Interno : public QObject {
    Q_OBJECT
public:
    explicit Interno(QString motivo)
        : m_motivo(std::move(motivo)), m_bus(QDBusConnection::sessionBus())
    {
        if (m_bus.isConnected())
            pedirAlPortal();
    }

    // What is held is given back. An answer that is still to come is waited for, since what it
    // brings has to be given back as well.
    void terminar()
    {
        m_terminada = true;
        soltar();
        if (!m_preguntando)
            deleteLater();
    }

private Q_SLOTS:
    // The portal has answered by then, and has asked the desktop behind it.
    void alResponder(uint resultado, const QVariantMap & /*nada*/)
    {
        if (resultado == 0)
            return;
        m_negada = true;
        if (m_peticion.isEmpty())
            return; // this has come before what came before it
        m_peticion.clear();
        if (!m_terminada)
            pedirAlGestor();
    }

private:
    void pedirAlPortal()
    {
        // A name of its own for each, as one may be held within another.
        const QString nombre = u"parvanel"_s + QString::number(reinterpret_cast<quintptr>(this));
        m_esperada = lugarDe(m_bus, nombre);
        // Heard from before the question, as its answer may follow at once.
        [[maybe_unused]] const bool oira =
            m_bus.connect(QString(), m_esperada, QString(peticion), u"Response"_s, this,
                          SLOT(alResponder(uint, QVariantMap)));
        QDBusMessage pregunta = alPortal(u"/org/freedesktop/portal/desktop"_s,
                                         "org.freedesktop.portal.Inhibit"_L1, u"Inhibit"_s);
        pregunta << QString() << deQue
                 << QVariantMap{{u"reason"_s, m_motivo}, {u"handle_token"_s, nombre}};
        preguntar(pregunta,
                  [this](const QDBusMessage &respuesta) { alContestarPortal(respuesta); });
    }

    void alContestarPortal(const QDBusMessage &respuesta)
    {
        const QDBusPendingReply<QDBusObjectPath> dada = respuesta;
        if (dada.isError() && dada.error().type() == QDBusError::NoReply)
            cerrar(m_esperada); // should it come to it yet
        if (!dada.isError() && !m_negada)
            m_peticion = dada.value().path();
        if (m_terminada)
            soltar();
        else if (m_peticion.isEmpty())
            pedirAlGestor();
    }

    void pedirAlGestor()
    {
        QDBusMessage pregunta = alGestor(u"Inhibit"_s);
        const uint sinVentana = 0;
        pregunta << QGuiApplication::desktopFileName() << sinVentana << m_motivo << deQue;
        preguntar(pregunta, [this](const QDBusMessage &respuesta) {
            const QDBusPendingReply<uint> dada = respuesta;
            if (!dada.isError())
                m_galleta = dada.value();
            if (m_terminada)
                soltar();
        });
    }

    template <typename Tomar>
    void preguntar(const QDBusMessage &pregunta, Tomar tomar)
    {
        m_preguntando = true;
        auto *espera = new QDBusPendingCallWatcher(m_bus.asyncCall(pregunta), this);
        connect(espera, &QDBusPendingCallWatcher::finished, this, [this, espera, tomar] {
            m_preguntando = false;
            tomar(espera->reply());
            espera->deleteLater();
            if (m_terminada && !m_preguntando)
                deleteLater();
        });
    }

    void soltar()
    {
        if (!m_peticion.isEmpty())
            cerrar(std::exchange(m_peticion, {}));
        if (m_galleta)
            decir(m_bus, alGestor(u"Uninhibit"_s) << *std::exchange(m_galleta, std::nullopt));
    }

    void cerrar(const QString &cual) { decir(m_bus, alPortal(cual, peticion, u"Close"_s)); }

    QString m_motivo;
    QDBusConnection m_bus;
    bool m_preguntando = false; // an answer is still to come
    bool m_negada = false;      // the portal took the request and could do nothing with it
    bool m_terminada = false;
    QString m_esperada;            // the portal's request, by the name that was asked for
    QString m_peticion;            // as the portal has named it; empty when it holds nothing
    std::optional<uint> m_galleta; // what the session manager knows it by
};

Vigilia::Vigilia(const QString &motivo) : d(new Interno(motivo)) {}

Vigilia::~Vigilia()
{
    d->terminar();
}

#include "Vigilia_linux.moc"

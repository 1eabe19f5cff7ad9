// SPDX-License-Identifier: MIT
#include "escenario/Historia.h"
#include "demostracion/ServicioDemo.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

void Historia::anotar(const QString &suceso)
{
    recoger();
    m_sucesos.append(suceso);
}

QStringList Historia::sucesos()
{
    recoger();
    return m_sucesos;
}

void Historia::olvidar()
{
    recoger();
    m_sucesos.clear();
}

void Historia::recoger()
{
    const auto peticiones = m_demo.peticiones();
    for (; m_recogidas < peticiones.size(); ++m_recogidas)
        m_sucesos.append(sinAzar(peticiones[m_recogidas].destino));
}

QString Historia::sinAzar(const QByteArray &destino)
{
    static const QRegularExpression consulta(u"\\?azar=\\d+&"_s);
    static const QRegularExpression camino(u"/tessarin/\\d+$"_s);
    return QString::fromLatin1(destino)
        .replace(consulta, u"?azar=#&"_s)
        .replace(camino, u"/tessarin/#"_s);
}

// SPDX-License-Identifier: MIT
#include "escenario/Escenario.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

void BarraAnotada::ponerValor(int valor)
{
    if (valor < 0 || valor > maximo)
        return;
    m_valor = valor;
    anotar(QString::number(valor));
}

void BarraAnotada::ponerMaximo(int nuevo)
{
    maximo = nuevo;
    anotar(u"max %1"_s.arg(nuevo));
}

void BarraAnotada::anotar(const QString &suceso)
{
    historia.append(suceso);
    m_comun.anotar(m_nombre + u' ' + suceso);
}

void RotuloAnotado::ponerTexto(const QString &texto)
{
    historia.append(texto);
    m_comun.anotar(m_nombre + u": "_s + texto);
}

Escenario::Escenario(const TamanoEscuela &tamano)
    : demo(tamano), disco(personal.path()), sesion{.idColegio = u"123"_s,
                                                   .anoActual = u"2010"_s,
                                                   .rolUsuario = u"SECRETARIA"_s},
      progreso{.barra1 = &barra1, .barra2 = &barra2, .estadoTS = &estadoTS, .estadoHS = &estadoHS},
      entorno{.ServiceBase = demo.base(),
              .http = http,
              .disco = disco,
              .azar = azar,
              .pausa =
                  [this](std::chrono::milliseconds duracion) {
                      pausas.append(duracion);
                      historia.anotar(u"pausa %1"_s.arg(duracion.count()));
                  },
              .sesion = sesion,
              .progreso = progreso}
{
}

QStringList Escenario::destinos() const
{
    QStringList resultado;
    const auto peticiones = demo.peticiones();
    for (const Peticion &peticion : peticiones)
        resultado.append(Historia::sinAzar(peticion.destino));
    return resultado;
}

void Escenario::responder(const QByteArray &fragmento, const QByteArray &cuerpo, int veces)
{
    Falla falla;
    falla.clase = Falla::Cuerpo;
    falla.cuerpo = cuerpo;
    demo.fallar(fragmento, falla, veces);
}

QString Escenario::nativa(const QString &ruta) const
{
    return personal.filePath(u"Quorvela/"_s + ruta);
}

QByteArray Escenario::leer(const QString &ruta) const
{
    QFile archivo(nativa(ruta));
    return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
}

bool Escenario::existe(const QString &ruta) const
{
    return QFile::exists(nativa(ruta));
}

QStringList Escenario::listar(const QString &carpeta) const
{
    return QDir(nativa(carpeta))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

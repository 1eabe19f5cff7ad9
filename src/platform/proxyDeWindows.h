// SPDX-License-Identifier: MIT
// What a user's choice of proxies in Windows comes to, by the rules that Windows has for it: plain
// functions of its words.
#pragma once

#include <QByteArray>
#include <QString>

namespace proxyDeWindows {

// The proxy for a whole address, by the user's list of proxies ("a:80", "http=a:80;https=b:80",
// "socks=c") and of what is asked for without them ("*.escuela.example;10.*;<local>"). Written as
// libcurl takes it, "http://a:80"; empty: the address is asked directly. Of several proxies for
// one kind of address it is the first.
QByteArray proxyPara(const QByteArray &direccion, const QString &lista, const QString &salvo);

// Whether the address is this computer's own, or that of a network without any order, and
// therefore asked directly whatever proxies there are. "<-loopback>" in the second list says
// otherwise.
bool esDeAqui(const QByteArray &direccion, const QString &salvo);

} // namespace proxyDeWindows

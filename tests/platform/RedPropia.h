// SPDX-License-Identifier: MIT
// A network of the test's own: this process leaves the computer's for one that holds nothing but
// a loopback interface, with name servers of its own. An ordinary account can do so too where it
// may have user namespaces.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace RedPropia {

// First of all in main(), before any thread or application object. Nothing when it is done, else
// the reason why it cannot be.
QString entrar();

// From now on names are asked with this content of resolv.conf. Call once, after entrar(). Nothing
// when it is done, else the reason.
QString nombresSegun(const QByteArray &resolvConf);

// From now on these are the names that are known without asking (the content of a hosts file). May
// be called again. Nothing when it is done, else the reason.
QString nombresSabidos(const QByteArray &hosts);

// A second network, at the other end of a cable from the first one.
namespace otraOrilla {

constexpr const char *direccion = "10.77.0.2"; // there; the first one is 10.77.0.1

// Once, after entrar(). Nothing when it is done, else the reason.
QString tender();
// Runs it there, in a thread of its own, and returns when it has. The sockets and threads that it
// makes stay there.
void alli(const std::function<void()> &que);
// The first network's interface, down and up again. False: it could not be done.
bool apagar();
bool encender();
// The cable, at its other end: the first network's interface stays up, and its routes too.
bool desenchufar();
bool enchufar();

} // namespace otraOrilla

} // namespace RedPropia

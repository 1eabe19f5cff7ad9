// A network of the test's own: this process leaves the computer's for one that holds nothing but
// a loopback interface, with name servers of its own. An ordinary account can do so too where it
// may have user namespaces.
#pragma once

#include <QByteArray>
#include <QString>

namespace RedPropia {

// First of all in main(), before any thread or application object. Nothing when it is done, else
// the reason why it cannot be.
QString entrar();

// From now on names are asked with this content of resolv.conf. Call once, after entrar(). Nothing
// when it is done, else the reason.
QString nombresSegun(const QByteArray &resolvConf);

} // namespace RedPropia

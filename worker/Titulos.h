// SPDX-License-Identifier: MIT
// What documents are called at the printer.
#pragma once

#include <map>
#include <string>

class Titulos {
public:
    // The title of a document's print job: its page's own, or the name of its file where the page
    // has none (`dado` is empty). A title that another document has borne already gets the name of
    // the file behind it, cut to the 255 bytes that a print server takes: a job whose conversation
    // broke off is told from a stranger under the same number by its title. The same document is
    // always called the same.
    std::string deTrabajo(const std::string &ruta, const std::string &dado);

private:
    std::map<std::string, std::string> m_deQuien; // title -> path
};

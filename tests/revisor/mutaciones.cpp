// SPDX-License-Identifier: MIT
// Drives a fuzz target without a fuzzer: the seeds, cut, crossed and changed at random, in an order
// that is the same every time. A fuzzer's own driver may stand in its place.
//
//   fuzz_X [COUNT [SEED]]
#include <QByteArray>
#include <QList>
#include <QRandomGenerator>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *datos, std::size_t largo);

namespace {

QList<QByteArray> semillas()
{
    return {
        "<html><head><title>A - B</title><style>@import 'x.css';a{b:url(\"y\\29 .gif\")}</style>"
        "<base href=../x/></head><body background=z.gif><table><tr><td>1<td>ANA<td><a "
        "href='..\\infoFinal/1.html'>I</a></table><p><b><i><p></b><table><b><tr><a></table>",
        "<svg><a xlink:href=x><foreignObject><p><math><mi><img srcset='a 1x, b 2x'></svg><template>"
        "<tr><frameset><select><option><optgroup><input></template><plaintext>",
        "<meta charset=utf-8><meta http-equiv=refresh content='0;url=\xC3\xB1.html'>"
        "<!--[if]><a href=%F1%C3%B1/..//%2e%2e\\#?>&ntilde;&#0;&#x110000;",
        "var rector = \"A\";\r\nvar secretaria = \"B\";\r\nvar slogan = \"C\";\r\nvar micolegio = "
        "\"D\";\r\nvar direccion = \"E\";\r\nvar telefono = \"F\";\r\nvar cdane = \"G\";\r\n\r\n",
        "(function(a,b){var c=/x[/]y/g,d='\\u00e1\\x41';for(;;){switch(a){case 1:break;default:}}"
        "try{throw{e:[1,,2]}}catch(f){}finally{}})(this)",
        QByteArray::fromHex("47494638396101000100800000ffffff0000002c000000000100010000020244010"
                            "03b"),
        QByteArray::fromHex("89504e470d0a1a0a0000000d49484452000000010000000108060000001f15c489"
                            "0000000d49444154789c6360606060000000050001a5f645400000000049454e44"
                            "ae426082"),
        QByteArray::fromHex("ffd8ffe000104a46494600010100000100010000ffdb004300ffffffffffffffff"
                            "ffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffffff"
                            "ffffffffffffffffffffffffffffffffffffffffffffffffc0000b0801000100"
                            "01011100ffc4001400010000000000000000000000000000000affc400141001"
                            "0000000000000000000000000000000000ffda0008010100003f0037ffd9"),
    };
}

QByteArray cambiada(QByteArray bytes, const QList<QByteArray> &todas, QRandomGenerator &azar)
{
    const auto lugar = [&] {
        return qsizetype(azar.bounded(int(bytes.size()) + 1));
    };
    for (int veces = 1 + azar.bounded(8); veces > 0; --veces) {
        const qsizetype desde = lugar();
        const qsizetype largo = std::min<qsizetype>(azar.bounded(64), bytes.size() - desde);
        switch (azar.bounded(6)) {
        case 0:
            bytes.truncate(desde);
            break;
        case 1:
            bytes.remove(desde, largo);
            break;
        case 2:
            bytes.insert(lugar(), bytes.mid(desde, largo).repeated(1 + azar.bounded(40)));
            break;
        case 3: {
            const QByteArray &otra = todas[azar.bounded(int(todas.size()))];
            bytes.insert(desde, otra.mid(azar.bounded(int(otra.size())), 80));
            break;
        }
        case 4:
            bytes.insert(desde, static_cast<char>(azar.bounded(256)));
            break;
        default:
            if (desde < bytes.size())
                bytes[desde] = static_cast<char>(azar.bounded(256));
        }
    }
    return bytes;
}

} // namespace

int main(int cuantos, char *argumentos[])
{
    const long veces = cuantos > 1 ? std::strtol(argumentos[1], nullptr, 10) : 5'000;
    const long semilla = cuantos > 2 ? std::strtol(argumentos[2], nullptr, 10) : 1;
    const QList<QByteArray> todas = semillas();
    for (long vez = 0; vez < veces; ++vez) {
        QRandomGenerator azar(static_cast<quint32>(semilla + vez));
        const QByteArray bytes = cambiada(todas[azar.bounded(int(todas.size()))], todas, azar);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
    }
    std::printf("%ld inputs from the seed %ld\n", veces, semilla);
    return 0;
}

// SPDX-License-Identifier: MIT
// How the page of a report looks, on a screen, light or dark, and on paper.
#pragma once

#include <QStringView>

namespace informe {

inline constexpr QStringView estilo = uR"(
:root { color-scheme: light dark; --texto: #1d2129; --tenue: #565d6b; --fondo: #fff;
  --linea: #d4d8e0; --franja: #f4f5f8; --bien: #146c2e; --mal: #a8280c; --nada: #6b4e00; }
@media (prefers-color-scheme: dark) {
  :root { --texto: #e8eaef; --tenue: #a9b0be; --fondo: #16181d; --linea: #3a404c;
    --franja: #20242b; --bien: #6fd08c; --mal: #ff9d85; --nada: #e8c268; } }
* { box-sizing: border-box; }
body { margin: 0; background: var(--fondo); color: var(--texto);
  font: 16px/1.5 "Segoe UI", "Liberation Sans", "DejaVu Sans", Arial, sans-serif; }
main { max-width: 62rem; margin: 0 auto; padding: 2rem 1.5rem 4rem; }
h1 { font-size: 1rem; font-weight: 600; letter-spacing: .02em; margin: 0; color: var(--tenue); }
h2 { font-size: 1.9rem; line-height: 1.2; margin: 1.5rem 0 1rem; overflow-wrap: anywhere; }
h3 { font-size: 1.25rem; margin: 2.2rem 0 .6rem; }
h4 { font-size: 1.05rem; margin: 1.4rem 0 .4rem; }
p { margin: 0; }
.sello { color: var(--tenue); font-size: .875rem; }
.veredicto { display: flex; gap: 1.1rem; align-items: center; padding: 1.1rem 1.3rem;
  border: 2px solid var(--tono); border-left-width: .6rem; border-radius: .4rem; }
.bien { --tono: var(--bien); } .mal { --tono: var(--mal); } .nada { --tono: var(--nada); }
.palabra { font-size: 1.7rem; line-height: 1.25; font-weight: 700; color: var(--tono); }
.signo { flex: none; width: 3.2rem; height: 3.2rem; border-radius: 50%; font-size: 2rem;
  font-weight: 700; line-height: 2.95rem; text-align: center; color: var(--tono);
  border: .2rem solid var(--tono); }
dl { display: grid; grid-template-columns: repeat(auto-fit, minmax(14rem, 1fr));
  gap: .8rem 1.5rem; margin: 1.4rem 0 0; }
dt { color: var(--tenue); font-size: .875rem; }
dd { margin: 0; overflow-wrap: anywhere; }
table { border-collapse: collapse; width: 100%; }
th, td { text-align: left; vertical-align: top; padding: .45rem .7rem;
  border-bottom: 1px solid var(--linea); font-weight: 400; }
thead th { font-weight: 600; font-size: .875rem; color: var(--tenue);
  border-bottom: 2px solid var(--linea); }
.cuentas { width: auto; min-width: min(34rem, 100%); }
.cuentas td, .cuentas thead th + th { text-align: right; font-variant-numeric: tabular-nums; }
.incompleta > * { font-weight: 700; color: var(--mal); background: var(--franja); }
.faltas { table-layout: fixed; }
.faltas th:first-child { width: 24%; } .faltas th:last-child { width: 32%; }
.faltas td { overflow-wrap: anywhere; }
.lugar { color: var(--tenue); font-size: .875rem; }
code { font-family: "Liberation Mono", "DejaVu Sans Mono", Consolas, monospace; font-size: .92em; }
ul { margin: .4rem 0; padding-left: 1.4rem; } li { margin: .3rem 0; overflow-wrap: anywhere; }
li ul { color: var(--tenue); font-size: .875rem; } em { color: var(--tenue); font-style: normal; }
a { color: inherit; }
@page { margin: 16mm 15mm; }
@media print {
  :root { color-scheme: light; --texto: #000; --tenue: #444; --fondo: #fff; --linea: #bbb;
    --franja: #fff; --bien: #146c2e; --mal: #a8280c; --nada: #6b4e00; }
  body { font-size: 10.5pt; } main { max-width: none; padding: 0; }
  h2, h3, h4, thead { break-after: avoid; } thead { display: table-header-group; }
  tr, .veredicto, dl > div { break-inside: avoid; }
  section + section { break-before: page; }
}
)";

} // namespace informe

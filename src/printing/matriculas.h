// The enrolment-sheet job: it downloads no pages but prints those of the archive.
#pragma once

#include <QString>

class PanelImpresion;
class Verbos;
struct Entorno;

// The text of ComboTipo for this job.
QString nombreMatriculas();

// Shows the list reply in a message box, then prints the stored sheet of each student, also when
// only downloading is chosen. A sheet that is not in the archive is passed over.
void imprimirMatriculas(Entorno &entorno, PanelImpresion &panel, Verbos &verbos);

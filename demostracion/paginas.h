// SPDX-License-Identifier: MIT
// The service's pages: school in, HTML out. Their text is in the files of ./paginas.
// Addresses of the service's own images are absolute; links from page to page are relative, for
// the folders in which an archive keeps them.
#pragma once

#include "demostracion/valores.h"

namespace demo {

QString indiceSalones(const Contexto &c);
QString listaSalon(const Contexto &c, const SalonDemo &salon);
// Column headings are images of the service's text drawing: labelling by "txt=" + text.
QString consolidadoNotas(const Contexto &c, const SalonDemo &salon);
QString consolidadoFallas(const Contexto &c, const SalonDemo &salon);

// `clase` 1 to 3 are layouts of the same document.
QString informeFinal(const Contexto &c, const AlumnoDemo &alumno, int clase);
QString certificado(const Contexto &c, const AlumnoDemo &alumno, int clase);
QString boletin(const Contexto &c, const AlumnoDemo &alumno, int periodo, int clase);

QString hojaMatricula(const Contexto &c, const AlumnoDemo &alumno);
QString infoAlumno(const Contexto &c, const AlumnoDemo &alumno);
QString pazYsalvo(const Contexto &c, const AlumnoDemo &alumno);
QString planillaAsignatura(const Contexto &c, const SalonDemo &salon, int materia);
QString observador(const Contexto &c, const AlumnoDemo &alumno);
// Where there is no other.
QString paginaAusente();

} // namespace demo

// SPDX-License-Identifier: MIT
#include "revisor/danios.h"

namespace danios {

QList<Danio> deGente()
{
    QList<Danio> todos;
    for (const QString &carpeta : deAlumno) {
        todos.append({carpeta == deAlumno[0]   ? "final report is missing"
                      : carpeta == deAlumno[1] ? "certificate is missing"
                      : carpeta == deAlumno[2] ? "enrolment sheet is missing"
                                               : "student information is missing",
                      reglas::FaltaDocumento, [carpeta](Taller &t) {
                          const Blanco b = t.pagina(QStringList{carpeta});
                          t.borrar(b.archivo);
                          return b;
                      }});
    }
    for (const QString &carpeta : deSalon) {
        todos.append({carpeta == deSalon[0]   ? "classroom is missing"
                      : carpeta == deSalon[1] ? "grades are missing"
                                              : "absences are missing",
                      reglas::FaltaSalon, [carpeta](Taller &t) {
                          const QString id = t.salon().id;
                          const QString ruta = u"archivos/%1/%2.html"_s.arg(carpeta, id);
                          t.borrar(ruta);
                          return Blanco{ruta, {}, id};
                      }});
    }
    todos.append({"photo is missing", reglas::FaltaFoto, [](Taller &t) {
                      const Blanco b = t.foto();
                      t.borrar(b.archivo);
                      return b;
                  }});
    todos.append({"student is missing altogether", reglas::FaltaDocumento, [](Taller &t) {
                      Blanco b = t.pagina(deAlumno);
                      for (const QString &carpeta : deAlumno) {
                          b.tambien.append(u"archivos/%1/%2.html"_s.arg(carpeta, b.idPersona));
                          t.borrar(b.tambien.last());
                      }
                      return b;
                  }});
    todos.append({"classroom is missing altogether", reglas::FaltaSalon, [](Taller &t) {
                      Blanco b = t.paginaDeSalon();
                      for (const QString &carpeta : deSalon) {
                          b.tambien.append(u"archivos/%1/%2.html"_s.arg(carpeta, b.idSalon));
                          t.borrar(b.tambien.last());
                      }
                      return b;
                  }});
    todos.append({"folder is missing", reglas::FaltaDocumento, [](Taller &t) {
                      const Blanco b = t.pagina(QStringList{u"matriculas"_s});
                      fs::remove_all(t.en(u"archivos/matriculas"_s));
                      Blanco todos = b;
                      for (const AlumnoDemo &a : t.escuela.alumnos)
                          todos.tambien.append(u"archivos/matriculas/"_s + a.id + u".html"_s);
                      return todos;
                  }});
    todos.append({"page under another name", reglas::FaltaDocumento, [](Taller &t) {
                      const Blanco b = t.pagina(deAlumno);
                      fs::rename(t.en(b.archivo), t.en(b.archivo.chopped(1)));
                      return b;
                  }});
    todos.append({"page in another folder", reglas::FaltaDocumento, [](Taller &t) {
                      Blanco b = t.pagina(QStringList{u"matriculas"_s});
                      // Its own links lead nowhere from there.
                      b.tambien = QStringList{u"archivos/"_s + b.idPersona + u".html"_s};
                      fs::rename(t.en(b.archivo), t.en(b.tambien.first()));
                      return b;
                  }});
    todos.append({"photo of somebody unknown", reglas::FaltaDocumento, [](Taller &t) {
                      fs::copy(t.en(t.foto().archivo), t.en(u"archivos/fotos/99123-alumno.jpg"_s));
                      Blanco b{u"archivos/certificados/99123.html"_s, u"99123"_s};
                      for (const QString &carpeta : deAlumno)
                          b.tambien.append(u"archivos/"_s + carpeta + u"/99123.html"_s);
                      return b;
                  }});
    return todos;
}

} // namespace danios

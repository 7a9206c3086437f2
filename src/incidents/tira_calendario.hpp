// The calendar beside an incident screen: the picture, and what it shows. It takes no focus and no key, asks nothing
// and shows no box; where the store fails it is empty and says so.
//
// A screen owns one as a member, puts it into its layout, and tells it three things:
//   SetLayout(tira_.Junto(Column({...})));   the parts of the screen, the calendar at their right
//   tira_.PonTrabajador(Text1(kTrabajador).Text());                              where a worker is shown or emptied
//   tira_.PonTecleado(TablaIncidencias::kIT, Text1(kInicio).Text(), Text1(kFin).Text());   after each change of a date
//   tira_.Relee();                                                               after a row was stored or removed
#pragma once

#include <optional>
#include <string>

#include "frame/sesion.hpp"
#include "incidents/calendario.hpp"
#include "platform/form/screen_parts.hpp"

namespace zendara {

class TiraCalendario {
 public:
  // Makes the control `Calendario` on the form. Neither is owned; both outlive it.
  TiraCalendario(Form& formulario, const Sesion& sesion);

  // The layout of the screen with the calendar at its right. It is left out while the window has no room for both.
  Layout Junto(Layout pantalla);

  // Reads the worker's rows when it is another one than before. Blank: nobody's calendar.
  void PonTrabajador(const std::string& numero);
  // Reads them again.
  void Relee();
  // The two dates as they stand in their fields: dd/mm/yy, or the six digits of the field with the focus. No reading.
  // While the start is no whole date there is no interval; an end that is none yet leaves it open.
  void PonTecleado(TablaIncidencias tabla, const std::string& inicio, const std::string& fin);

  const Calendario& Mostrado() const { return calendario_; }

 private:
  void Lee();
  void Muestra();

  const Sesion& sesion_;
  Picture imagen_;
  std::string trabajador_;
  Calendario calendario_;
};

}  // namespace zendara

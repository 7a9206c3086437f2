// The closed classes beside the component, created by their name at run time: pick list, banner, listing viewer. A host
// registers its own in the process, or has a library of its own found through the class files of the machine; otherwise
// those of the front end serve. A class that is missing is error 429 at the place of use.
//
// An object is created anew for each use and released afterwards. Errors that its operations throw reach the screen,
// which shows them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "zendara/export.h"
#include "zendara/record_engine.hpp"

namespace zendara {

class Form;

// Place of a column in the row that a list returns, in characters: start from 1.
struct RowPlace {
  int start = 0;
  int width = 0;

  friend bool operator==(const RowPlace&, const RowPlace&) = default;
};

// A text and the place where a row has it.
struct PlacedText {
  RowPlace place;
  std::string text;
};

// How a list may show its rows, and on which of them it may begin. It changes nothing of what is returned.
struct PickView {
  std::vector<std::string> headings;  // of the columns of the row; none for fixed rows
  std::vector<std::size_t> reading;   // the columns, from 0, in the order in which people read them
  // What the fields hold that the row fills: the list begins on the row that has the first of these, and of several on
  // the one that has the most of them, counted from the first. None for empty fields.
  std::vector<PlacedText> present;
  YearWindow years;  // of the rows' dates
  // The rows begin sorted by that column and those that are read after it, but for the first `foremost` ones, which
  // stay on top.
  std::optional<std::size_t> sorted_by;
  std::size_t foremost = 0;
};

// Rows that are made as the list reads them.
class PickRows {
 public:
  virtual ~PickRows() = default;
  // Puts the texts of the next row there, one for each column; false behind the last row. Its errors are those of the
  // list.
  virtual bool Siguiente(std::vector<std::string>& textos) = 0;
};

// A row as it is returned: each text padded with blanks to its width or cut to it, at its place. REQUIRES: as many of
// both, the places one behind the other.
ZENDARA_EXPORT std::string LayOutRow(const std::vector<std::string>& texts, const std::vector<RowPlace>& places);

// A modal box with a title and rows, from which the user takes one or none. The operations return when the user has
// chosen or given up. `marca_boton` is 0 when the last mouse movement over a look-up image had the right button alone
// held (and before the first one), otherwise 1.
class PickList {
 public:
  virtual ~PickList() = default;

  // The rows of a query.
  //   columnas   the row's columns in their order. A code has three digits: two are the N of the query's column CampoN,
  //              one is its kind, 0 text, 1 code, 2 date. An element with two codes, "032,042", means the first of
  //              them that the query has.
  //   lugares    where each element of `columnas` stands in the returned row
  //   motor      opens the file `base`
  //   resultado  the chosen row, each text padded with blanks to its width or cut to it, dates as dd/mm/yy, Null as
  //              blanks; empty if nothing was chosen
  // The class has eight arguments in this order, of which its calling convention leaves the third and the fourth free:
  // they carry `lugares` and `motor`.
  virtual void ConsultaLista(const std::vector<std::string>& columnas, const std::string& sql,
                             const std::vector<RowPlace>& lugares, Engine& motor, const std::string& base,
                             const std::string& titulo, std::int16_t marca_boton, std::string& resultado) = 0;

  // Fixed rows; `resultado` is the chosen one, unchanged, or empty.
  virtual void ConsultaFija(const std::vector<std::string>& lineas, const std::string& titulo, std::int16_t marca_boton,
                            std::string& resultado) = 0;

  // Rows that the caller makes; of the codes in `columnas` only the kinds count. To a list that does not know better
  // they are fixed rows.
  virtual void ConsultaFilas(const std::vector<std::string>& /*columnas*/, PickRows& filas,
                             const std::vector<RowPlace>& lugares, const std::string& titulo, std::int16_t marca_boton,
                             std::string& resultado) {
    std::vector<std::string> lineas;
    for (std::vector<std::string> textos; filas.Siguiente(textos);) lineas.push_back(LayOutRow(textos, lugares));
    ConsultaFija(lineas, titulo, marca_boton, resultado);
  }

  // Called first, with how the rows of the call that follows may be shown.
  virtual void Presenta(const PickView& /*vista*/) {}
};

// A rectangle in the window of a form, from the upper left corner of what is inside its border, in twips: 15 to the
// pixel of the machine, whatever the text size.
struct BannerPlace {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;

  friend bool operator==(const BannerPlace&, const BannerPlace&) = default;
};

// Paints on a part of a screen. `handle` is the native window of the form, the same in both calls; 0 in a front end
// without windows.
class Banner {
 public:
  virtual ~Banner() = default;
  // The form loads: its window is there and not shown yet. `lugar` is the inside of the panel that the screen keeps for
  // the banner, 60 twips from its edges, where the panel stands when the window opens; without windows the
  // place of its design. A banner that has nothing to show sets width or height to 0, and the panel goes.
  virtual void PosicionBanner(std::int32_t handle, BannerPlace& lugar) = 0;
  // The form closes; its window is still there.
  virtual void AvisoCierre(std::int32_t handle) = 0;
};

// Number of columns n in decimal; then for each column its title, its alignment (0 text, 1 number) and its width in
// twips in decimal; then the title of the listing, and False but for a listing of pending incidents. 3n + 3 elements.
using ListingDescription = std::vector<std::variant<std::string, std::int16_t, bool>>;

// Prints the rows of a staging table, in the order in which they were written. The properties are set first.
class ListingViewer {
 public:
  virtual ~ListingViewer() = default;
  virtual void Visualiza(ListingDescription& descripcion) = 0;
  virtual void FicheroDatos(const std::string& ruta) = 0;  // full path of the database
  virtual void TablaDatos(const std::string& tabla) = 0;
  virtual void FormularioPadre(Form* formulario) = 0;  // on whose behalf the listing runs; not owned
};

inline constexpr std::string_view kPickListClass = "ObjLista";
inline constexpr std::string_view kBannerClass = "Ravelin.clsRavelin";
inline constexpr std::string_view kListingViewerClass = "ClsVisorListado";

// Where classes are looked for that the host has not registered.
class ClassSource {
 public:
  virtual ~ClassSource() = default;
  // A new object; null when there is no class of that name here. Error 429 for one that is here and cannot be made,
  // with the reason as its detail.
  virtual std::unique_ptr<PickList> MakePickList(std::string_view name) const = 0;
  virtual std::unique_ptr<Banner> MakeBanner(std::string_view name) const = 0;
  virtual std::unique_ptr<ListingViewer> MakeListingViewer(std::string_view name) const = 0;
};

// The classes that can be created, by name without regard to case. A class is looked for among those that the host has
// registered, then in the source, then among those that the front end offers.
class ZENDARA_EXPORT Components {
 public:
  template <typename T>
  using Factory = std::function<std::unique_ptr<T>()>;

  // The host's. A later registration of the same name replaces the earlier one; an empty factory makes the class
  // missing, wherever else it is.
  void Register(std::string_view name, Factory<PickList> factory);
  void Register(std::string_view name, Factory<Banner> factory);
  void Register(std::string_view name, Factory<ListingViewer> factory);
  bool Has(std::string_view name) const;  // registered by the host
  // The front end's.
  void Offer(std::string_view name, Factory<PickList> factory);
  void Offer(std::string_view name, Factory<Banner> factory);
  void Offer(std::string_view name, Factory<ListingViewer> factory);
  // Null: there is none. MakeClassFiles of zendara/engines.hpp is the one of the machine; a front end sets it where the
  // host has set none.
  void LookIn(std::shared_ptr<const ClassSource> source) { source_ = std::move(source); }
  const std::shared_ptr<const ClassSource>& Source() const { return source_; }

 private:
  friend ZENDARA_EXPORT std::unique_ptr<PickList> CreatePickList(const Components&, std::string_view);
  friend ZENDARA_EXPORT std::unique_ptr<Banner> CreateBanner(const Components&, std::string_view);
  friend ZENDARA_EXPORT std::unique_ptr<ListingViewer> CreateListingViewer(const Components&, std::string_view);

  using Factories = std::map<std::string, std::variant<Factory<PickList>, Factory<Banner>, Factory<ListingViewer>>>;
  template <typename T>
  std::unique_ptr<T> Create(std::string_view name,
                            std::unique_ptr<T> (ClassSource::*make)(std::string_view name) const) const;

  Factories registered_;
  Factories offered_;
  std::shared_ptr<const ClassSource> source_;
};

// A new object of that class, never null. Error 429 when there is none of that name and kind.
ZENDARA_EXPORT std::unique_ptr<PickList> CreatePickList(const Components& components,
                                                        std::string_view name = kPickListClass);
ZENDARA_EXPORT std::unique_ptr<Banner> CreateBanner(const Components& components, std::string_view name = kBannerClass);
ZENDARA_EXPORT std::unique_ptr<ListingViewer> CreateListingViewer(const Components& components,
                                                                  std::string_view name = kListingViewerClass);

}  // namespace zendara

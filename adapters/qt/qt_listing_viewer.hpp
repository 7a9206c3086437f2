// The listing viewer of this front end.
#pragma once

#include <string>

#include "zendara/neighbours.hpp"

namespace zendara {

class QtHost;

// The preview stands over the window of the form on whose behalf it is, and Visualiza returns when it was closed. What
// others write meanwhile does not come in. Errors of the description and of the store go to the caller.
class QtListingViewer : public ListingViewer {
 public:
  // REQUIRES: the host outlives it.
  explicit QtListingViewer(QtHost& host) : host_(host) {}

  void Visualiza(ListingDescription& descripcion) override;
  void FicheroDatos(const std::string& ruta) override { file_ = ruta; }
  void TablaDatos(const std::string& tabla) override { table_ = tabla; }
  void FormularioPadre(Form* formulario) override { form_ = formulario; }

 protected:
  const std::string& File() const { return file_; }
  const std::string& Table() const { return table_; }

 private:
  QtHost& host_;
  std::string file_;
  std::string table_;
  Form* form_ = nullptr;
};

}  // namespace zendara

#include "adapters/qt/document_keeper.hpp"

#include "adapters/hosting/application.hpp"
#include "adapters/qt/form_window.hpp"
#include "adapters/qt/text.hpp"
#include "print/record_document.hpp"

namespace zendara {

void DocumentKeeper::KeepRecord(FormWindow& window) {
  Form& form = window.Shown();
  const QString said =
      Keep([&] { return print::RecordDocument(form, documents_.Now(), documents_.Measure()); }, window);
  if (!said.isEmpty()) window.Pass([&] { form.SetStatus(FromQt(said)); });
}

QString DocumentKeeper::KeepDetail(const Box& box, const FormWindow* window, QWidget& over) {
  return Keep(
      [&] {
        print::Heading heading;
        if (window) heading = print::HeadingOf(window->Shown(), {});
        heading.created = documents_.Now();
        heading.title = box.title.empty() ? kApplicationTitle : box.title;
        return print::DetailDocument(heading, box.text, box.detail, documents_.Measure());
      },
      over);
}

QString DocumentKeeper::Keep(const std::function<print::Document()>& make, QWidget& over) {
  static const FileFormat kinds[] = {{"Documento PDF", "pdf"}};
  print::Document document;
  const auto begin = [&] {
    document = make();
    return document.title;
  };
  const auto write = [&](const std::string& path, std::size_t, print::DocumentWriter::Existing existing) {
    documents_.WritePdf(document, path, existing);
    return true;
  };
  return files_.Keep(begin, kinds, write, over);
}

}  // namespace zendara

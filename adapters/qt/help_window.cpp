#include "adapters/qt/help_window.hpp"

#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QVBoxLayout>

#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"
#include "common/ayuda.hpp"

static void InitHelpPages() { Q_INIT_RESOURCE(zendara_help); }

namespace zendara {
namespace {

const QString kPages = QStringLiteral("qrc:/help/");
constexpr int kCharactersAcross = 110;

class Browser : public QTextBrowser {
 public:
  using QTextBrowser::QTextBrowser;

 protected:
  // Tables and paragraphs as they are read, not as Markdown leaves them.
  void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override {
    QTextBrowser::doSetSource(url, type);
    const int em = fontMetrics().height();
    QTextCursor cursor(document());
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
      auto* table = qobject_cast<QTextTable*>(frame);
      if (!table) continue;
      QTextTableFormat format = table->format();
      format.setCellPadding(em / 4.0);
      format.setCellSpacing(0);
      format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
      format.setBorderCollapse(true);
      format.setBorder(1);
      format.setBorderBrush(ColourOf(Role::kLine));
      format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
      format.setBottomMargin(em / 2.0);
      table->setFormat(format);
    }
    cursor.movePosition(QTextCursor::Start);
    setTextCursor(cursor);
  }
};

}  // namespace

HelpWindow::HelpWindow(int context, QWidget* parent) : QDialog(parent) {
  InitHelpPages();
  setWindowModality(Qt::ApplicationModal);
  browser_ = new Browser(this);
  browser_->setOpenExternalLinks(false);
  browser_->document()->setDocumentMargin(fontMetrics().height());
  auto* back = new QPushButton(QStringLiteral("&Atrás"), this);
  auto* start = new QPushButton(QStringLiteral("Í&ndice"), this);
  auto* close = new QPushButton(QStringLiteral("&Cerrar"), this);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(back);
  buttons->addWidget(start);
  buttons->addStretch();
  buttons->addWidget(close);
  auto* column = new QVBoxLayout(this);
  column->addWidget(browser_);
  column->addLayout(buttons);
  for (QPushButton* button : {back, start, close}) button->setAutoDefault(false);
  back->setEnabled(false);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
  connect(browser_, &QTextBrowser::sourceChanged, this,
          [this] { setWindowTitle(browser_->documentTitle().isEmpty() ? windowTitle() : browser_->documentTitle()); });
  connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
  connect(start, &QPushButton::clicked, this, [this] { Open(kPages + ToQt(PaginasAyuda().front().fichero)); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  zoom::Watch(this, [this] { browser_->reload(); });

  const PaginaAyuda& page = PaginaDeContexto(context);
  setWindowTitle(QStringLiteral("Ayuda: ") + ToQt(page.titulo));
  const QRect area = screen()->availableGeometry();
  resize(QSize(TextWidth(fontMetrics(), kCharactersAcross), area.height() * 4 / 5).boundedTo(area.size()));
  Open(kPages + ToQt(page.fichero));
  browser_->setFocus();
}

void HelpWindow::Open(const QUrl& page) { browser_->setSource(page, QTextDocument::MarkdownResource); }

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (!HandleZoomKey(*event)) QDialog::keyPressEvent(event);
}

}  // namespace zendara

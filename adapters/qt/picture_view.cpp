#include "adapters/qt/picture_view.hpp"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <utility>

#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"
#include "zendara/forms/drawing.hpp"

namespace zendara {
namespace {

constexpr double kTwips = 15;
constexpr double kDegrees = 10;  // escapements are in tenths

// Red is the lowest byte.
QColor ToRgb(std::uint32_t color) {
  return QColor::fromRgb(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                         static_cast<int>((color >> 16) & 0xFF));
}

QColor ColourOf(Ink ink) {
  constexpr std::pair<Ink, Role> kRolesOfInks[] = {
      {Ink::kPaper, Role::kInput},     {Ink::kDimmed, Role::kHeading},  {Ink::kLine, Role::kLine},
      {Ink::kText, Role::kText},       {Ink::kWarning, Role::kWarning}, {Ink::kAccent, Role::kAccent},
      {Ink::kSeries1, Role::kSeries1}, {Ink::kSeries2, Role::kSeries2}, {Ink::kSeries3, Role::kSeries3},
      {Ink::kSeries4, Role::kSeries4}, {Ink::kSeries5, Role::kSeries5}, {Ink::kOnMarks, Role::kOnAccent},
  };
  return ColourOf(std::ranges::find(kRolesOfInks, ink, [](const auto& entry) { return entry.first; })->second);
}

class QtScreen : public Screen {
 public:
  explicit QtScreen(const QPalette& palette) : palette_(palette) {}
  double TwipsPerPixel() const override { return kTwips; }
  std::uint32_t TranslateColor(std::int32_t color) const override {
    if (color >= 0) return static_cast<std::uint32_t>(color);
    // The system colours that forms are made of; the others look like the window.
    constexpr std::pair<std::uint8_t, QPalette::ColorRole> kRoles[] = {
        {5, QPalette::Base},    {8, QPalette::WindowText},       {13, QPalette::Highlight},
        {15, QPalette::Button}, {14, QPalette::HighlightedText}, {18, QPalette::ButtonText},
    };
    QPalette::ColorRole role = QPalette::Window;
    for (const auto& [index, named] : kRoles) {
      if (index == (color & 0xFF)) role = named;
    }
    const QColor found = palette_.color(role);
    return static_cast<std::uint32_t>(found.red() | found.green() << 8 | found.blue() << 16);
  }

 private:
  const QPalette& palette_;
};

class Surface : public DrawingSurface {
 public:
  Surface(QPixmap& pixmap, const QFont& font) : pixmap_(pixmap), font_(font), painter_(&pixmap) {
    painter_.setRenderHint(QPainter::TextAntialiasing);
  }

  double Width() const override { return pixmap_.width() / pixmap_.devicePixelRatio() * kTwips; }
  double Height() const override { return pixmap_.height() / pixmap_.devicePixelRatio() * kTwips; }
  PictureFont Font() const override {
    return {.name = font_.family().toStdString(), .size = font_.pointSizeF(), .bold = font_.bold()};
  }
  int VerticalPixelsPerInch() const override { return QPixmap(1, 1).logicalDpiY(); }

  void FillRect(int left, int top, int right, int bottom, std::uint32_t color) override {
    painter_.fillRect(left, top, right - left, bottom - top, PaintedGround(ToRgb(color)));
  }

  void TextOut(const LogicalFont& font, int alignment, int x, int y, std::string_view text) override {
    Write(font, alignment, x, y, text, Ink::kText);
  }

  void FillMark(int left, int top, int right, int bottom, Ink ink) override {
    painter_.fillRect(left, top, right - left, bottom - top, ColourOf(ink));
  }

  void Write(const LogicalFont& font, int alignment, int x, int y, std::string_view text, Ink ink) override {
    QFont drawn(ToQt(font.face));
    drawn.setPixelSize(std::max(std::abs(font.height), 1));
    drawn.setBold(font.weight >= 700);
    drawn.setItalic(font.italic);
    drawn.setUnderline(font.underline);
    drawn.setStrikeOut(font.strikeout);
    const QFontMetricsF metrics(drawn);
    const QString words = ToQt(text);
    painter_.save();
    painter_.setFont(drawn);
    painter_.setPen(ColourOf(ink));
    painter_.translate(x, y);
    painter_.rotate(-font.escapement / kDegrees);
    const double left = alignment == kAlignCentre ? -metrics.horizontalAdvance(words) / 2 : 0;
    painter_.drawText(QPointF(left, metrics.ascent()), words);
    painter_.restore();
  }

  void Refresh() override {}

 private:
  QPixmap& pixmap_;
  QFont font_;
  QPainter painter_;
};

class PictureWidget : public QWidget {
 public:
  PictureWidget(Picture& picture, QWidget* parent) : QWidget(parent), picture_(picture) {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(Accessible), true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  }

  void Renew() {
    pixmap_ = {};
    update();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    const QSize wanted = size() * devicePixelRatioF();
    if (pixmap_.size() != wanted) Draw(wanted);
    QPainter(this).drawPixmap(0, 0, pixmap_);
  }

 private:
  static QAccessibleInterface* Accessible(const QString& /*key*/, QObject* object) {
    auto* picture = dynamic_cast<PictureWidget*>(object);
    return picture ? new QAccessibleWidget(picture, QAccessible::Graphic) : nullptr;
  }

  void Draw(QSize wanted) {
    pixmap_ = QPixmap(wanted);
    pixmap_.setDevicePixelRatio(devicePixelRatioF());
    pixmap_.fill(ColourOf(Role::kWindow));
    QFont caption = TextFont();
    caption.setBold(true);
    Surface surface(pixmap_, caption);
    picture_.Paint(QtScreen(palette()), surface);
  }

  Picture& picture_;
  QPixmap pixmap_;
};

class PictureView : public ControlView {
 public:
  PictureView(FormWindow& window, Picture& picture, QWidget& parent)
      : ControlView(window, picture, new PictureWidget(picture, &parent)), picture_(picture) {}

  void Sync() override {
    ControlView::Sync();
    const QString description = ToQt(picture_.Description());
    if (!description.isEmpty() && widget_->accessibleDescription() != description)
      widget_->setAccessibleDescription(description);
    static_cast<PictureWidget*>(widget_)->Renew();
  }
  void Rescale() override {
    // A caption on it begins its size in points left of the middle.
    if (!widget_->property(kBeside).toBool()) {
      widget_->setFixedWidth(static_cast<int>(TextFont().pointSizeF() * 3));
    }
    static_cast<PictureWidget*>(widget_)->Renew();
  }

 private:
  Picture& picture_;
};

}  // namespace

std::unique_ptr<ControlView> MakePictureView(FormWindow& window, Picture& picture, QWidget& parent) {
  return std::make_unique<PictureView>(window, picture, parent);
}

}  // namespace zendara

#include "adapters/qt/field_view.hpp"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStyle>
#include <algorithm>
#include <cstdlib>

#include "adapters/qt/field_edit.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"
#include "runtime/format.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr int kWidthOfFreeText = 24;
constexpr int kWidest = 44;

class FieldView : public ControlView {
 public:
  FieldView(FormWindow& window, TextBox& box, QWidget& parent)
      : ControlView(window, box, new QLineEdit(&parent)), box_(box), edit_(static_cast<QLineEdit*>(widget_)) {
    edit_->setAcceptDrops(false);
    edit_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  }

  void Sync() override {
    ControlView::Sync();
    const QString text = ToQt(AtRest() ? GroupThousands(box_.Text()) : box_.Text());
    if (edit_->text() != text) edit_->setText(text);
    ShowSelection(text);
    edit_->setReadOnly(box_.Locked());
    const Qt::Alignment side = box_.Alignment() == Alignment::kRight    ? Qt::AlignRight
                               : box_.Alignment() == Alignment::kCenter ? Qt::AlignHCenter
                                                                        : Qt::AlignLeft;
    if (edit_->alignment() != (side | Qt::AlignVCenter)) edit_->setAlignment(side | Qt::AlignVCenter);
  }

  void Rescale() override {
    const QFontMetrics metrics(TextFont());
    const int characters = box_.Width() == 0 ? kWidthOfFreeText : std::min(box_.Width(), kWidest);
    const int frame = 2 * edit_->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, edit_);
    edit_->setFixedWidth(TextWidth(metrics, characters) + metrics.height() / 2 + frame);
  }

  bool Handle(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
        return editing_.HandleKey(*static_cast<QKeyEvent*>(event));
      case QEvent::ContextMenu:
        // That of a key came with the key.
        if (const auto* menu = static_cast<QContextMenuEvent*>(event); menu->reason() == QContextMenuEvent::Mouse) {
          editing_.OpenMenu(menu->globalPos());
        }
        return true;
      case QEvent::InputMethod:
        return Compose(*static_cast<QInputMethodEvent*>(event));
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        return PressMouse(*static_cast<QMouseEvent*>(event));
      case QEvent::MouseButtonRelease:
        anchor_ = kNoAnchor;
        return true;
      case QEvent::MouseMove:
        ControlView::Handle(watched, event);
        if (anchor_ != kNoAnchor && box_.HasFocus()) SelectTo(Place(*static_cast<QMouseEvent*>(event)));
        return true;
      default:
        return ControlView::Handle(watched, event);
    }
  }

 private:
  static constexpr int kNoAnchor = -1;

  void ShowSelection(const QString& text) {
    if (!box_.HasFocus()) {
      if (edit_->cursorPosition() != 0 || edit_->hasSelectedText()) edit_->home(false);
      return;
    }
    const int start = UnitsOf(text, box_.SelStart());
    const int end = UnitsOf(text, box_.SelStart() + box_.SelLength());
    const int caret = UnitsOf(text, box_.Caret());
    if (start == end) {
      edit_->setCursorPosition(caret);
      edit_->deselect();
    } else if (caret == start) {
      edit_->setSelection(end, start - end);
    } else {
      edit_->setSelection(start, end - start);
    }
  }

  // What a dead key or an input method has composed is typed; what it still composes is shown by the line edit.
  bool Compose(const QInputMethodEvent& event) {
    if (composing_) return false;
    for (const std::string& character : TypedCharacters(event.commitString())) {
      window_.Pass([&] { window_.Shown().Press({.code = 0, .shift = 0, .text = character}); });
    }
    QInputMethodEvent shown(event.preeditString(), event.attributes());
    composing_ = true;
    QCoreApplication::sendEvent(edit_, &shown);
    composing_ = false;
    Sync();
    return true;
  }

  int Place(const QMouseEvent& event) const {
    const QString before = edit_->text().left(edit_->cursorPositionAt(event.position().toPoint()));
    const auto points = AtRest() && ToQt(box_.Text()) != edit_->text() ? before.count(QLatin1Char('.')) : 0;
    return CharactersOf(before, static_cast<int>(before.size() - points));
  }

  bool AtRest() const { return box_.Grouped() && !box_.HasFocus(); }

  bool PressMouse(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) return true;
    const int length = static_cast<int>(Len(box_.Text()));
    const bool all = event.type() == QEvent::MouseButtonDblClick;
    anchor_ = all ? kNoAnchor : Place(event);
    window_.Pass([&] { window_.Shown().PointTo(box_, all ? 0 : anchor_, all ? length : 0); });
    return true;
  }

  void SelectTo(int place) {
    window_.Pass([&] { window_.Shown().PointTo(box_, std::min(anchor_, place), std::abs(place - anchor_)); });
  }

  TextBox& box_;
  QLineEdit* edit_;
  FieldEdit editing_{window_, box_, *edit_};
  int anchor_ = kNoAnchor;  // where the mouse was pressed
  bool composing_ = false;
};

}  // namespace

std::unique_ptr<ControlView> MakeFieldView(FormWindow& window, TextBox& box, QWidget& parent) {
  return std::make_unique<FieldView>(window, box, parent);
}

}  // namespace zendara

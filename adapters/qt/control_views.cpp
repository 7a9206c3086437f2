// Lists, check and option buttons, push buttons, tabs, frames, labels and look-up images.
#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <algorithm>

#include "adapters/qt/field_view.hpp"
#include "adapters/qt/form_layout.hpp"
#include "adapters/qt/grid_view.hpp"
#include "adapters/qt/input_events.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/picture_view.hpp"
#include "adapters/qt/row_picker_view.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

// Shows the text of the model, which an entry of the list need not hold.
class ListWidget : public QComboBox {
 public:
  explicit ListWidget(QWidget* parent) : QComboBox(parent) {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(Accessible), true);
  }

  void SetShown(const QString& text) {
    if (text == shown_) return;
    shown_ = text;
    update();
    QAccessibleValueChangeEvent changed(this, text);
    QAccessible::updateAccessibility(&changed);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = shown_;
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
  }

 private:
  // What is shown is the value, and not the entry.
  class Spoken : public QAccessibleWidget {
   public:
    explicit Spoken(ListWidget& list) : QAccessibleWidget(&list, QAccessible::ComboBox), list_(list) {}

    QString text(QAccessible::Text kind) const override {
      return kind == QAccessible::Value ? list_.shown_ : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
      QAccessible::State state = QAccessibleWidget::state();
      state.hasPopup = true;
      return state;
    }
    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
      if (action == showMenuAction()) return list_.showPopup();
      QAccessibleWidget::doAction(action);
    }

   private:
    ListWidget& list_;
  };
  static QAccessibleInterface* Accessible(const QString& /*key*/, QObject* object) {
    auto* list = dynamic_cast<ListWidget*>(object);
    return list ? new Spoken(*list) : nullptr;
  }

  QString shown_;
};

class ListView : public ControlView {
 public:
  ListView(FormWindow& window, ComboBox& combo, QWidget& parent)
      : ControlView(window, combo, new ListWidget(&parent)), combo_(combo), list_(static_cast<ListWidget*>(widget_)) {
    list_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    QObject::connect(list_, &QComboBox::activated, &window_, [this](int item) {
      window_.Pass([&] { window_.Shown().Pick(combo_, item); });
      Sync();
    });
  }

  void Sync() override {
    ControlView::Sync();
    const QSignalBlocker quiet(list_);
    if (static_cast<std::size_t>(list_->count()) != combo_.Items().size() || items_ != combo_.Items()) {
      items_ = combo_.Items();
      list_->clear();
      for (const std::string& item : items_) list_->addItem(ToQt(item));
      Rescale();
    }
    if (list_->currentIndex() != combo_.ListIndex()) list_->setCurrentIndex(combo_.ListIndex());
    list_->SetShown(ToQt(combo_.Text()));
  }

  // As wide as its widest entry and the arrow.
  void Rescale() override {
    const QFontMetrics metrics(TextFont());
    int width = metrics.horizontalAdvance(QStringLiteral("00"));
    for (int i = 0; i < list_->count(); ++i) width = std::max(width, metrics.horizontalAdvance(list_->itemText(i)));
    list_->setFixedWidth(width + metrics.height() * 5 / 2);
  }

  bool Handle(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) {
      window_.Pass([&] { window_.Shown().Click(combo_); });
      return !combo_.HasFocus();  // opens only if the focus came to rest here
    }
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F4) {
      list_->showPopup();
      return true;
    }
    return ControlView::Handle(watched, event);
  }

  // Opens the list and takes the entry.
  void ClickOn(int item, int /*column*/) override {
    ClickWidget(*list_, list_->rect().center());
    QAbstractItemView* entries = list_->view();
    if (!entries->isVisible()) return;
    const QModelIndex entry = entries->model()->index(item, 0);
    entries->scrollTo(entry);
    entries->setCurrentIndex(entry);
    PressKey(*entries, {.code = key::kEnter, .shift = 0, .text = {}});
  }

 private:
  ComboBox& combo_;
  ListWidget* list_;
  std::vector<std::string> items_;
};

class ButtonView : public ControlView {
 public:
  ButtonView(FormWindow& window, Control& control, QAbstractButton* button)
      : ControlView(window, control, button), button_(button) {
    button_->setAutoExclusive(false);
    QObject::connect(button_, &QAbstractButton::clicked, &window_, [this] {
      window_.Pass([&] { window_.Shown().Click(control_); });
      Sync();  // the widget has turned its mark by itself
    });
  }

  void Sync() override {
    ControlView::Sync();
    const QString caption = ToQt(control_.Caption());
    if (button_->text() != caption) {
      button_->setText(caption);
      button_->setShortcut({});  // access keys are the model's
    }
  }

  bool IsButton() const override { return true; }

  void ClickOn(int /*row*/, int /*column*/) override {
    // The mark stands at the left; the words may be narrower than the widget.
    ClickWidget(*widget_, {widget_->height() / 2, widget_->height() / 2});
  }

 private:
  QAbstractButton* button_;
};

class CheckView : public ButtonView {
 public:
  CheckView(FormWindow& window, CheckBox& box, QCheckBox* check)
      : ButtonView(window, box, check), box_(box), check_(check) {}

  void Sync() override {
    ButtonView::Sync();
    const int value = box_.Value();
    check_->setTristate(value == 2);
    check_->setCheckState(value == 0 ? Qt::Unchecked : value == 1 ? Qt::Checked : Qt::PartiallyChecked);
  }

 private:
  CheckBox& box_;
  QCheckBox* check_;
};

class OptionView : public ButtonView {
 public:
  OptionView(FormWindow& window, OptionButton& option, QRadioButton* radio)
      : ButtonView(window, option, radio), option_(option), radio_(radio) {}

  void Sync() override {
    ButtonView::Sync();
    radio_->setChecked(option_.Value());
  }

 private:
  OptionButton& option_;
  QRadioButton* radio_;
};

QIcon LensIcon(int size) {
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  const double unit = size / 16.0;
  painter.setPen(QPen(ColourOf(Role::kText), 1.8 * unit, Qt::SolidLine, Qt::RoundCap));
  painter.drawEllipse(QPointF(6.7, 6.7) * unit, 4.2 * unit, 4.2 * unit);
  painter.drawLine(QPointF(10, 10) * unit, QPointF(13.5, 13.5) * unit);
  return QIcon(pixmap);
}

class ImageView : public ControlView {
 public:
  ImageView(FormWindow& window, Control& image, QWidget& parent)
      : ControlView(window, image, new QToolButton(&parent)), button_(static_cast<QToolButton*>(widget_)) {
    QObject::connect(button_, &QAbstractButton::clicked, &window_,
                     [this] { window_.Pass([&] { window_.Shown().Click(control_); }); });
  }

  bool IsButton() const override { return true; }
  QString NameBehind(const QString& field) const override { return QStringLiteral("Lista de ") + field; }

  void Rescale() override {
    const int size = QFontMetrics(TextFont()).height();
    button_->setIcon(LensIcon(size * 2));
    button_->setIconSize({size, size});
  }

 private:
  QToolButton* button_;
};

class PagesView : public ControlView {
 public:
  PagesView(FormWindow& window, Tabs& tabs, QWidget& parent)
      : ControlView(window, tabs, new QTabWidget(&parent)), tabs_(tabs), pages_(static_cast<QTabWidget*>(widget_)) {
    pages_->tabBar()->setFocusPolicy(Qt::TabFocus);
    pages_->setFocusPolicy(Qt::NoFocus);
    pages_->setUsesScrollButtons(true);
    Watch(pages_->tabBar());
  }

  QWidget* FocusTarget() const override { return pages_->tabBar(); }

  void Sync() override {
    ControlView::Sync();
    for (int i = 0; i < pages_->count() && i < static_cast<int>(tabs_.Titles().size()); ++i) {
      const QString title = ToQt(tabs_.Titles()[static_cast<std::size_t>(i)]);
      if (pages_->tabText(i) == title) continue;
      pages_->setTabText(i, title);
      pages_->widget(i)->setAccessibleName(title);
    }
    if (pages_->currentIndex() == tabs_.Tab()) return;
    pages_->setCurrentIndex(tabs_.Tab());
    // A page is turned to its beginning; the focus may scroll it.
    if (const auto* page = qobject_cast<QScrollArea*>(pages_->currentWidget())) {
      page->horizontalScrollBar()->setValue(0);
      page->verticalScrollBar()->setValue(0);
    }
  }

  bool Handle(QObject* watched, QEvent* event) override {
    if (watched != pages_->tabBar()) return false;
    if (event->type() == QEvent::MouseButtonPress) {
      const auto* mouse = static_cast<QMouseEvent*>(event);
      const int page = pages_->tabBar()->tabAt(mouse->pos());
      if (mouse->button() == Qt::LeftButton && page >= 0) {
        window_.Pass([&] { window_.Shown().TurnTo(tabs_, page); });
      }
      return true;
    }
    return event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick ||
           ControlView::Handle(watched, event);
  }

  void ClickOn(int page, int /*column*/) override {
    QTabBar* bar = pages_->tabBar();
    ClickWidget(*bar, bar->tabRect(page).center());
  }

 private:
  Tabs& tabs_;
  QTabWidget* pages_;
};

// A frame without a title is only there to hold and hide its controls.
class BareFrameView : public ControlView {
 public:
  BareFrameView(FormWindow& window, Control& frame, QWidget& parent)
      : ControlView(window, frame, new QWidget(&parent)) {
    widget_->setProperty(kBare, true);
  }
};

class FrameView : public ControlView {
 public:
  FrameView(FormWindow& window, Control& frame, QWidget& parent)
      : ControlView(window, frame, new QGroupBox(&parent)), group_(static_cast<QGroupBox*>(widget_)) {}

  void Sync() override {
    ControlView::Sync();
    group_->setTitle(ToQt(control_.Caption()).remove(QLatin1Char('&')));
  }

 private:
  QGroupBox* group_;
};

class LabelView : public ControlView {
 public:
  LabelView(FormWindow& window, Control& label, QWidget& parent)
      : ControlView(window, label, new QLabel(&parent)), label_(static_cast<QLabel*>(widget_)) {
    label_->setTextFormat(Qt::PlainText);
  }

  void Sync() override {
    ControlView::Sync();
    label_->setText(ToQt(control_.Caption()).remove(QLatin1Char('&')));
  }

 private:
  QLabel* label_;
};

}  // namespace

std::unique_ptr<ControlView> MakeView(FormWindow& window, Control& control, QWidget& parent) {
  switch (control.Kind()) {
    case ControlKind::kTextBox:
      return MakeFieldView(window, static_cast<TextBox&>(control), parent);
    case ControlKind::kComboBox:
      return std::make_unique<ListView>(window, static_cast<ComboBox&>(control), parent);
    case ControlKind::kCheckBox:
      return std::make_unique<CheckView>(window, static_cast<CheckBox&>(control), new QCheckBox(&parent));
    case ControlKind::kOptionButton:
      return std::make_unique<OptionView>(window, static_cast<OptionButton&>(control), new QRadioButton(&parent));
    case ControlKind::kButton:
      return std::make_unique<ButtonView>(window, control, new QPushButton(&parent));
    case ControlKind::kTabs:
      return std::make_unique<PagesView>(window, static_cast<Tabs&>(control), parent);
    case ControlKind::kGrid:
      return MakeGridView(window, static_cast<Grid&>(control), parent);
    case ControlKind::kRowPicker:
      return MakeRowPickerView(window, static_cast<RowPicker&>(control), parent);
    case ControlKind::kFrame:
      if (control.Caption().empty()) return std::make_unique<BareFrameView>(window, control, parent);
      return std::make_unique<FrameView>(window, control, parent);
    case ControlKind::kPicture:
      return MakePictureView(window, static_cast<Picture&>(control), parent);
    case ControlKind::kImage:
      return std::make_unique<ImageView>(window, control, parent);
    case ControlKind::kLabel:
      break;
  }
  return std::make_unique<LabelView>(window, control, parent);
}

}  // namespace zendara

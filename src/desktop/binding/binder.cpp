#include "binding/binder.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTextEdit>
#include <algorithm>

#include "binding/date_widgets.h"
#include "binding/picture_view.h"
#include "pictures/pictures.h"
#include "product_view/product_table.h"
#include "values/error.h"
#include "widgets/product_view_box.h"

namespace pelkor::desktop {

using pelkedit::WidgetKind;

namespace {

// The Qt widget that shows one model, and the part of it the user works with.
std::pair<QWidget*, QWidget*> MakeWidget(const pelkedit::Widget& model, QWidget* form) {
  const QString name = QString::fromStdString(model.Name());
  QWidget* widget = nullptr;
  switch (model.Kind()) {
    case WidgetKind::kTextBox:
      if (static_cast<const pelkedit::TextBox&>(model).Multiline()) {
        auto* edit = new QPlainTextEdit(form);
        edit->setTabChangesFocus(true);
        // Lines wrap at the box's width: there is nothing to scroll sideways to.
        edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        widget = edit;
      } else {
        auto* line = new QLineEdit(form);
        // A text display looks like the form, not like a field to type into.
        if (!model.Focusable()) {
          QPalette palette = line->palette();
          palette.setColor(QPalette::Base, palette.color(QPalette::Window));
          line->setPalette(palette);
        }
        widget = line;
      }
      break;
    case WidgetKind::kList:
      widget = new QComboBox(form);
      break;
    case WidgetKind::kOption: {
      auto* option = new QRadioButton(form);
      // The models keep their groups exclusive; Qt's own grouping is by parent and would
      // join groups that share a frame.
      option->setAutoExclusive(false);
      widget = option;
      break;
    }
    case WidgetKind::kLabel: {
      auto* label = new QLabel(form);
      label->setWordWrap(true);
      label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
      widget = label;
      break;
    }
    case WidgetKind::kPicture:
      widget = new PictureView(form);
      break;
    case WidgetKind::kButton:
      widget = new QPushButton(form);
      break;
    case WidgetKind::kFrame:
      // A frame with a caption groups its fields under that title.
      if (model.Caption().empty()) {
        widget = new QFrame(form);
      } else {
        widget = new QGroupBox(form);
      }
      break;
    case WidgetKind::kDateEdit: {
      auto* box = new DateEditBox(name, form);
      return {box, box->Edit()};
    }
    case WidgetKind::kCalendar: {
      auto* box = new CalendarBox(name, form);
      return {box, box};
    }
    case WidgetKind::kDateField: {
      auto* edit = new QDateEdit(form);
      edit->setButtonSymbols(QAbstractSpinBox::NoButtons);
      widget = edit;
      break;
    }
    case WidgetKind::kRichText: {
      auto* text = new QTextEdit(form);
      text->setReadOnly(true);
      widget = text;
      break;
    }
    case WidgetKind::kProductView: {
      const auto view = std::dynamic_pointer_cast<ProductListView>(
          static_cast<const pelkedit::ProductViewBox&>(model).Shared());
      if (!view) {
        widget = new QLabel(QObject::tr("The product list is not available."), form);
        break;
      }
      auto* table = new ProductTable(view, form);
      // The table is what the user works with; both answer to the model's name.
      table->setObjectName(name);
      table->Table()->setObjectName(name);
      return {table, table->Table()};
    }
  }
  widget->setObjectName(name);
  return {widget, widget};
}

}  // namespace

Binder::Binder(pelkedit::WidgetRegistry& registry, QWidget* form, BinderOptions options)
    : QObject(form),
      registry_(registry),
      form_(form),
      options_(std::move(options)),
      self_(std::make_shared<Binder*>(this)) {
  bindings_.reserve(registry_.All().size());
  for (pelkedit::Widget* model : registry_.All()) {
    index_[model] = bindings_.size();
    bindings_.push_back({model, nullptr, nullptr});
    if (!model->LookUpPicture().empty()) lookUpPictures_.insert(model->LookUpPicture());
  }
  unmade_ = bindings_.size();
  zoom_ = FormZoom();
  ChooseKeys();
  std::weak_ptr<Binder*> weak = self_;
  for (Binding& binding : bindings_) {
    binding.model->AddObserver([weak](pelkedit::Widget& model, const std::string& property) {
      const auto self = weak.lock();
      if (!self) return;
      Binder& binder = **self;
      const auto it = binder.index_.find(&model);
      if (it == binder.index_.end()) return;
      if (property == "visible" && model.Visible()) binder.MakeShownWidgets();
      binder.Apply(binder.bindings_[it->second], property);
    });
  }
  MakeShownWidgets();
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
}

Binder::~Binder() {
  self_.reset();
}

bool Binder::InHiddenFrame(const pelkedit::Widget& model) {
  for (const pelkedit::Widget* parent = model.Parent(); parent != nullptr;
       parent = parent->Parent()) {
    if (!parent->Visible()) return true;
  }
  return false;
}

// A page's widgets are made when its frame is first shown: a window opens with the widgets of
// the page it shows, and the other pages cost nothing until the user goes to them.
void Binder::MakeShownWidgets() {
  if (unmade_ == 0) return;
  std::vector<Binding*> made;
  for (Binding& binding : bindings_) {
    if (binding.placed || InHiddenFrame(*binding.model)) continue;
    const auto [placed, inner] = MakeWidget(*binding.model, form_);
    binding.placed = placed;
    binding.inner = inner;
    made.push_back(&binding);
  }
  unmade_ = 0;
  for (const Binding& binding : bindings_) unmade_ += binding.placed ? 0 : 1;
  if (made.empty()) return;
  for (Binding* binding : made) {
    const pelkedit::Widget* parent = binding->model->Parent();
    if (parent != nullptr) binding->placed->setParent(bindings_[index_.at(parent)].placed);
  }
  for (Binding* binding : made) {
    ApplyAll(*binding);
    ConnectInput(*binding);
    ConnectKeys(*binding);
  }
  // Labels name widgets made after them.
  for (Binding* binding : made) Apply(*binding, "caption");
  // Stacking: a larger z-order is in front; equal ones keep the order of creation. Siblings are
  // always made together, so each batch orders itself.
  std::stable_sort(made.begin(), made.end(), [](const Binding* a, const Binding* b) {
    return a->model->ZOrder() < b->model->ZOrder();
  });
  for (Binding* binding : made) binding->placed->raise();
}

QWidget* Binder::WidgetFor(const std::string& name) const {
  const pelkedit::Widget* model = registry_.Find(name);
  const auto it = index_.find(model);
  return it == index_.end() ? nullptr : bindings_[it->second].inner.data();
}

QWidget* Binder::PlacedWidgetFor(const std::string& name) const {
  const pelkedit::Widget* model = registry_.Find(name);
  const auto it = index_.find(model);
  return it == index_.end() ? nullptr : bindings_[it->second].placed.data();
}

Binder::Binding* Binder::Find(const QWidget* widget) {
  for (const QWidget* w = widget; w != nullptr; w = w->parentWidget()) {
    for (Binding& binding : bindings_) {
      if (binding.placed == w || binding.inner == w) return &binding;
    }
    if (w == form_) break;
  }
  return nullptr;
}

pelkedit::Widget* Binder::ModelFor(const QWidget* widget) const {
  Binding* binding = const_cast<Binder*>(this)->Find(widget);
  return binding == nullptr ? nullptr : binding->model;
}

void Binder::OnFocusChanged(QWidget* now) {
  if (applying_ || now == nullptr) return;
  Binding* binding = Find(now);
  if (binding == nullptr || !binding->model->Focusable()) return;
  // Moving the focus raises the lost focus of the widget that had it, before the press that
  // moved the focus is delivered.
  Dispatch([this, binding] { registry_.MoveFocus(binding->model); });
}

void Binder::SyncFocus() {
  pelkedit::Widget* focused = registry_.Focused();
  if (focused == nullptr) return;
  const auto it = index_.find(focused);
  if (it == index_.end()) return;
  QWidget* widget = bindings_[it->second].inner;
  // Focus anywhere on the placed widget (a date edit's drop button) is the model's focus.
  const QWidget* placed = bindings_[it->second].placed;
  const QWidget* focus = QApplication::focusWidget();
  if (widget == nullptr || !widget->isVisible() || placed->isAncestorOf(focus) || placed == focus ||
      widget->isAncestorOf(focus) || widget == focus) {
    return;
  }
  widget->setFocus(Qt::OtherFocusReason);
}

void Binder::Dispatch(const std::function<void()>& action) {
  if (applying_) return;
  try {
    action();
  } catch (const std::exception& error) {
    ReportError(error);
  }
  SyncFocus();
  emit userActionHandled();
}

void Binder::ReportError(const std::exception& error) {
  if (options_.onError) {
    options_.onError(error);
    return;
  }
  QString text = QString::fromUtf8(error.what());
  if (const auto* pelk = dynamic_cast<const pelkedit::PelkError*>(&error)) {
    text = QString("Error %1 in %2:\n%3")
               .arg(pelk->Number())
               .arg(QString::fromStdString(pelk->Source()),
                    QString::fromStdString(pelk->Description()));
  }
  QMessageBox::critical(form_ ? form_->window() : nullptr, tr("Pelkor"), text);
}

const QPixmap& Binder::PictureOf(int id) {
  auto it = pictures_.find(id);
  if (it == pictures_.end())
    it = pictures_.emplace(id, DrawPicture(id, options_.tabCaptions)).first;
  return it->second;
}

}  // namespace pelkor::desktop

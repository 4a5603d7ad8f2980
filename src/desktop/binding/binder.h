#pragma once

#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QWidget>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "pictures/pictures.h"
#include "widgets/controls.h"
#include "widgets/widget_registry.h"

class QKeyEvent;

namespace pelkor::desktop {

struct BinderOptions {
  // The user's short-date format (Qt syntax); the date edits take its separator.
  QString shortDateFormat = "M/d/yyyy";
  // Called with an error a model raised while handling the user's input; by default the error
  // is shown in a message box over the form.
  std::function<void(const std::exception&)> onError;
  // What the tab strips' tabs say: their pages' captions.
  TabCaptions tabCaptions;
  // The first sentence of a help topic (empty when there is none): a question's label's topic
  // describes the question's input to a screen reader when the input has no tooltip.
  std::function<QString(int mapId)> helpSentence;
};

// Shows every widget model of a registry as a real Qt widget of the same object name on a form,
// keeps the widgets in step with the models, and hands the user's input to the models the way
// the classic controls raised it.
class Binder : public QObject {
  Q_OBJECT
 public:
  Binder(pelkedit::WidgetRegistry& registry, QWidget* form, BinderOptions options = {});
  ~Binder() override;
  Binder(const Binder&) = delete;
  Binder& operator=(const Binder&) = delete;

  // The widget the user works with (for a date edit the edit itself, not its drop button).
  QWidget* WidgetFor(const std::string& name) const;
  // The widget that is placed and shown (for a date edit or calendar, its box).
  QWidget* PlacedWidgetFor(const std::string& name) const;
  // The model shown by `widget` or by the nearest bound widget that contains it.
  pelkedit::Widget* ModelFor(const QWidget* widget) const;
  // Runs a user action on the models as the widgets' own input does: an error is shown, the
  // focus follows the models, userActionHandled is emitted.
  void Run(const std::function<void()>& action) { Dispatch(action); }
  const BinderOptions& Options() const { return options_; }
  // A press of the mouse on a widget at (x, y), as the user's own press: a picture that takes
  // the focus takes it from the field being edited first.
  void Press(pelkedit::Widget& picture, int button, int shift, float x, float y);
  // Opens the help of the question that has the focus, as a click on its label does (F1); false
  // when the focused widget has no label that opens help.
  bool HelpForFocus();
  // The room the form has beyond the component's design, in pixels; the widgets take it as
  // their anchors say.
  void SetExtraRoom(QSize extra);

 signals:
  // Emitted after each user action has reached the models.
  void userActionHandled();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Binding {
    pelkedit::Widget* model = nullptr;
    QPointer<QWidget> placed;
    QPointer<QWidget> inner;
  };

  static bool InHiddenFrame(const pelkedit::Widget& model);
  void MakeShownWidgets();
  void ConnectInput(Binding& binding);
  void ConnectButtonLike(Binding& binding);
  void ConnectText(Binding& binding);
  void ConnectDates(Binding& binding);
  void ApplyAll(Binding& binding);
  void Apply(Binding& binding, const std::string& property);
  void ApplyKindSpecific(Binding& binding, const std::string& property);
  void ApplyGeometry(Binding& binding);
  void ApplyPicture(Binding& binding);
  void ApplyDayBounds(Binding& binding);
  void ApplyDay(Binding& binding);
  void ApplyList(Binding& binding);
  void OnFocusChanged(QWidget* now);
  void SyncFocus();
  bool MouseEvent(Binding& binding, QEvent* event);
  // The keyboard (binder_keys.cpp).
  void ChooseKeys();
  void ConnectKeys(Binding& binding);
  bool KeyEvent(Binding& binding, QEvent* event);
  pelkedit::Widget* LookupOpenedBy(const Binding& binding, const QKeyEvent& key) const;
  bool IsLookupPicture(const std::string& name) const;
  QString ShownCaption(const pelkedit::Widget& model) const;
  // The caption as shown without a mnemonic: "&&" as one ampersand, a lone '&' dropped.
  static QString Unmarked(const QString& caption);
  const pelkedit::Widget* FirstFocusableIn(const pelkedit::Widget& frame) const;
  void ApplyLabelCaption(Binding& binding);
  // Screen readers (binder_accessible.cpp).
  const pelkedit::Widget* QuestionOf(const pelkedit::Widget& model) const;
  void ApplyAccessibleText(Binding& binding);
  QWidget* TabStopOf(const pelkedit::Widget& model);
  std::vector<Binding*> GroupOf(Binding& option);
  void UpdateTabStops(Binding& option);
  bool TypeIntoDate(Binding& binding, QEvent* event);
  void Dispatch(const std::function<void()>& action);
  void ReportError(const std::exception& error);
  Binding* Find(const QWidget* widget);
  const QPixmap& PictureOf(int id);

  // The form's zoom for the desktop's font (FormZoom()), fixed when the form is made.
  qreal zoom_ = 1;
  pelkedit::WidgetRegistry& registry_;
  QPointer<QWidget> form_;
  BinderOptions options_;
  std::vector<Binding> bindings_;
  std::map<const pelkedit::Widget*, std::size_t> index_;
  // Models whose widgets wait for their page to be shown.
  std::size_t unmade_ = 0;
  std::map<int, QPixmap> pictures_;
  // The pictures that open a text box's look-up ("..."): a Tab stop after the box that Space or
  // Enter presses, as F4 or Alt+Down in the box does.
  std::set<std::string> lookUpPictures_;
  // What each label names for the keyboard, and the caption position of each mnemonic the
  // binder chose (captions that mark their own keep theirs).
  std::map<const pelkedit::Widget*, const pelkedit::Widget*> buddies_;
  std::map<const pelkedit::Widget*, int> mnemonics_;
  // The label that names each input: its question.
  std::map<const pelkedit::Widget*, const pelkedit::Widget*> questions_;
  // Set while a model's state is copied into its widget, so the widget's signals are not taken
  // for the user's input.
  bool applying_ = false;
  QSize extra_{0, 0};
  // The date edit that has just moved on to its next part by itself.
  QPointer<QWidget> movedOnIn_;
  // Observers outlive the binder on the models; they hold this only weakly.
  std::shared_ptr<Binder*> self_;
};

// Gives the model the selection a text box's widget shows: UTF-16 positions START to END of
// the widget's TEXT, as the model counts characters.
void SyncSelection(pelkedit::TextBox& box, const QString& text, int start, int end);

}  // namespace pelkor::desktop

#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <string>
#include <utility>

#include "binding/binder.h"
#include "platform/object_factory.h"
#include "platform/platform.h"

namespace pelkor::desktop {

// The platform of the desktop host: real message boxes, the host window, the screen pointer,
// the system clock and locale, processes, modal dialogs and collaborator creation.
class QtPlatform : public pelkedit::IPlatform {
 public:
  explicit QtPlatform(const pelkedit::ObjectFactory& factory);
  ~QtPlatform() override;
  QtPlatform(const QtPlatform&) = delete;
  QtPlatform& operator=(const QtPlatform&) = delete;

  // The window that owns message boxes and receives the posted close request.
  void SetHostWindow(QWidget* window) { host_ = window; }
  // Fixed pictures of the dialogs' designs, as for the binder.
  BinderOptions& DialogOptions() { return dialogOptions_; }

  // A message box as asked for; a hook answers it instead of a window (tests, scripted runs).
  struct Message {
    std::string text;
    pelkedit::MsgIcon icon;
    pelkedit::MsgButtons buttons;
    std::string title;
  };
  using MessageHook = std::function<pelkedit::MsgAnswer(const Message&)>;
  void SetMessageHook(MessageHook hook) { messageHook_ = std::move(hook); }
  // Takes the command lines the editor would start instead of starting them (tests).
  using ProcessHook = std::function<void(const std::string&)>;
  void SetProcessHook(ProcessHook hook) { processHook_ = std::move(hook); }
  // Called, after the handler that posted it has returned, instead of closing the host window
  // directly, so the host knows the close was the component's own request.
  void SetCloseRequestHandler(std::function<void()> handler) {
    closeRequestHandler_ = std::move(handler);
  }
  // Answers message boxes and takes command lines as `other` does (a second window's platform
  // behaves as the first's in tests and scripted runs).
  void CopyHooksFrom(const QtPlatform& other) {
    messageHook_ = other.messageHook_;
    processHook_ = other.processHook_;
  }
  // How many message boxes have been asked for so far.
  int MessagesShown() const { return messagesShown_; }

  pelkedit::MsgAnswer MsgBox(const std::string& text, pelkedit::MsgIcon icon,
                             pelkedit::MsgButtons buttons, const std::string& title) override;
  void PostMessage(std::int32_t hwnd, std::uint32_t message, std::int32_t wparam,
                   std::int32_t lparam) override;
  std::int32_t HostWindowHandle() override { return kHostWindowHandle; }
  pelkedit::MousePointer ScreenPointer() override { return pointer_; }
  void SetScreenPointer(pelkedit::MousePointer pointer) override;
  pelkedit::Date Now() override;
  pelkedit::Date Today() override;
  std::string ShortDateFormat() override;
  std::int32_t GetLocaleInfoA(std::int32_t locale, std::int32_t lctype, std::string& buffer,
                              std::int32_t size) override;
  void StartProcess(const std::string& commandLine) override;
  void ShowModal(pelkedit::ModalDialog& dialog) override;
  pelkedit::ObjectPtr CreateObject(const std::string& progId) override;

  // The handle the editor is given for the host window.
  static constexpr std::int32_t kHostWindowHandle = 0x484F5354;

 private:
  const pelkedit::ObjectFactory& factory_;
  QPointer<QWidget> host_;
  pelkedit::MousePointer pointer_ = pelkedit::MousePointer::kDefault;
  bool cursorOverridden_ = false;
  BinderOptions dialogOptions_;
  MessageHook messageHook_;
  ProcessHook processHook_;
  std::function<void()> closeRequestHandler_;
  int messagesShown_ = 0;
};

}  // namespace pelkor::desktop

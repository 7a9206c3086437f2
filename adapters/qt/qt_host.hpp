// The windowed front end: shows forms, boxes, lists and help, starts programs. With a script's player it shows the same
// windows and lets the player work on them.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "adapters/headless/script_player.hpp"
#include "adapters/qt/script_hands.hpp"
#include "platform/form/form.hpp"
#include "zendara/neighbours.hpp"
#include "zendara/ports.hpp"

class QWidget;

namespace zendara {

class FormWindow;

class QtHost : public FormHost, public Dialogs, public Shell {
 public:
  // Told of windows at moments when they show something new; `name` is free of what file names cannot hold.
  using Photographer = std::function<void(QWidget& window, const std::string& name)>;

  // REQUIRES: a QApplication with the look installed.
  QtHost();
  ~QtHost() override;
  QtHost(const QtHost&) = delete;
  QtHost& operator=(const QtHost&) = delete;

  // Pick list and banner of this front end.
  const Components& Neighbours() const { return components_; }
  // Plays the script; the company's platform has this host in it. Programs are then printed and not started.
  ScriptResult Play(Script script, const Platform& platform, ScriptPlayer::Sink out);
  void SetPhotographer(Photographer photographer) { photographer_ = std::move(photographer); }
  FormWindow* WindowOf(const Form& form) const;

  void ShowModal(Form& form) override;
  void DoEvents() override;
  void ShowHelp(const std::string& file, int context) override;
  void Untrapped(int number, const std::string& text) override;
  Dialogs& Boxes() override { return *this; }
  std::string ApplicationTitle() const override { return std::string(kApplicationTitle); }
  std::int32_t WindowHandle(const Form& form) const override;

  BoxAnswer Show(const Box& box) override;
  void Beep() override;

  int FindWindow(std::string_view class_name, std::string_view title) override;
  int Start(std::string_view program) override;
  void Activate(int task) override;
  void Activate(std::string_view title) override;

 private:
  class List;

  void Register();
  void FlushAll();
  void Photograph(QWidget& window, const QString& name) const;
  void PhotographTop() const;
  // The window that a new one stands before.
  QWidget* Behind() const;

  Components components_;
  Photographer photographer_;
  std::unique_ptr<ScriptHands> hands_;
  std::unique_ptr<ScriptPlayer> player_;
  std::vector<FormWindow*> windows_;  // the last is on top
};

}  // namespace zendara

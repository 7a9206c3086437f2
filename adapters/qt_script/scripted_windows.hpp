// A script at the windows: stands before them as the host of the forms, and once each window is open does in it what
// the script says, with real key and mouse events. The windows know nothing of it.
#pragma once

#include <QString>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "adapters/qt/qt_host.hpp"
#include "adapters/qt_script/script_hands.hpp"
#include "adapters/script/script_player.hpp"

namespace zendara {

class ScriptedWindows : public FormHost, public Dialogs {
 public:
  // Gets windows at moments when they show something new; `name` is free of what file names cannot hold.
  using Photographer = std::function<void(QWidget& window, const std::string& name)>;

  // `photographer` may be empty. The windows outlive this object.
  ScriptedWindows(QtHost& windows, Script script, ScriptPlayer::Sink out, Photographer photographer);

  // Plays the script. Engine, files and folder are those of `platform`. Programs are printed and not started.
  ScriptResult Play(Platform platform);

  void ShowModal(Form& form) override;
  void DoEvents() override { windows_.DoEvents(); }
  void ShowHelp(const std::string& file, int context, const HelpPlace& place) override;
  void Untrapped(int number, const std::string& text) override { player_.Error(number, text); }
  DraftKeeper* Drafts() override { return player_.Drafts(); }
  void ShowDrafts(Form& form) override;
  std::int32_t WindowHandle(Form& form) override { return windows_.WindowHandle(form); }
  std::optional<ControlPlace> PlaceOf(const Control& control) override { return windows_.PlaceOf(control); }

  BoxAnswer Show(const Box& box) override;
  void Beep() override { player_.Beep(); }

 private:
  std::optional<std::size_t> Choose(const std::string& title, RowList& rows);
  std::unique_ptr<ListingViewer> MakeViewer();
  void Photograph(QWidget& window, const QString& name) const;
  void PhotographTop() const;

  QtHost& windows_;
  Photographer photographer_;
  ScriptHands hands_;
  ScriptPlayer player_;
  Components components_;
};

}  // namespace zendara

#pragma once

#include <QMainWindow>
#include <array>

#include "forms/handler_guard.h"
#include "forms/settings/frmSettings.h"
#include "forms/settings/settings_view.h"

class QGridLayout;
class QGroupBox;
class QLabel;
class QLayout;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace veyra {

class QtPreview;
class QtSwatch;

/// The widgets of the colour settings window. They report each gesture to its handler in
/// frmSettings, by way of the guard, and decide nothing.
class QtSettingsWindow : public QMainWindow, public SettingsView {
  Q_OBJECT

 public:
  /// `guard` must outlive the window.
  explicit QtSettingsWindow(const HandlerGuard& guard);

  /// REQUIRES: called before the operator can reach the window. `frmSettings` must outlive it.
  void SetHandler(frmSettings* handler) { handler_ = handler; }

  void ShowPreview(const RoleColors& colors) override;
  void ShowCurColors(const RoleColors& colors) override;
  void ShowCustomColor(const Rgb& color) override;
  void FocusOption(ColorRole role) override;
  Rgb Resolve(std::int32_t number) const override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  using Handler = void (frmSettings::*)();

  void BuildMenu();
  void BuildContents();
  QGroupBox* BuildSelector();
  QLayout* BuildMixer();
  void AddBar(QGridLayout* grid, std::size_t index);
  QGroupBox* BuildRoles();
  void AddRole(QGridLayout* grid, std::size_t index);
  QWidget* BuildButtons();
  QPushButton* MakeButton(const char* name, const char* caption, QWidget* parent, Handler handler);

  const HandlerGuard& guard_;
  frmSettings* handler_ = nullptr;
  QtPreview* preview_ = nullptr;
  QtSwatch* Colors0_ = nullptr;            ///< Colors(0): the mixed colour.
  std::array<QScrollBar*, 3> HScroll1_{};  ///< Red, green, blue.
  std::array<QLabel*, 3> bar_values_{};
  std::array<QRadioButton*, kColorRoles> Option1_{};
  std::array<QtSwatch*, kColorRoles> CurColors_{};  ///< CurColors(1) to (5), from entry 0.
};

}  // namespace veyra

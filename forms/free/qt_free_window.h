#pragma once

#include <QMainWindow>
#include <array>

#include "data/one_based.h"
#include "forms/free/free_view.h"
#include "forms/free/frmFree.h"
#include "forms/handler_guard.h"
#include "forms/widgets/qt_piecework.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;

namespace veyra {

class QtWholeRows;

/// The widgets of the window of free times. Up and Down in a date field choose a line, and Enter
/// opens it from every field.
class QtFreeWindow : public QMainWindow, public FreeView {
  Q_OBJECT

 public:
  /// `guard` must outlive the window.
  explicit QtFreeWindow(const HandlerGuard& guard);

  /// REQUIRES: called before the operator can reach the window. `handler` must outlive it.
  void SetHandler(frmFree* handler) { handler_ = handler; }

  void ShowFields(const FreeFields& fields, const std::vector<Facility>& facilities) override;
  void ShowFree(const FreePicture& picture) override;
  void KeepWorking(bool working) override;
  void CloseWindow() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildContents();
  QWidget* BuildFields();
  void AddLength(QBoxLayout* row);
  void AddHours(QBoxLayout* row);
  void AddDates(QBoxLayout* row);
  QWidget* BuildWeekdays();
  QGroupBox* BuildFacilities();
  void BuildResults(QBoxLayout* column);
  QComboBox* AddBox(const char* name, const Phrase& spoken_name);
  void ShowFacilities(const FreeFields& fields, const std::vector<Facility>& facilities);
  void TickAll(bool ticked);
  void ShowWhetherAll();
  FreeFields Fields() const;
  void ReportFields();
  void ReportChosen();

  const HandlerGuard& guard_;
  frmFree* handler_ = nullptr;
  bool is_filling_ = false;
  QComboBox* Length_ = nullptr;
  std::array<QComboBox*, 2> Hours_{};
  std::array<QLineEdit*, 2> Text1_{};
  OneBased<QCheckBox*, 7> Days_;  ///< By weekday, 1 to 7.
  QCheckBox* All_ = nullptr;
  QListWidget* Facilities_ = nullptr;
  QtWholeRows* FacilityRows_ = nullptr;  ///< Holds Facilities_.
  QListWidget* List1_ = nullptr;
  QLabel* lblState_ = nullptr;
  QtPiecework work_{[this] { guard_.Run([this] { handler_->Work(); }); }};
};

}  // namespace veyra

#pragma once

#include <QFrame>
#include <array>
#include <vector>

#include "forms/settings/settings_view.h"

class QLabel;

namespace veyra {

/// Frame1: a small month that shows what a choice of colours looks like. The 17th is its today.
class QtPreview : public QFrame {
  Q_OBJECT

 public:
  explicit QtPreview(QWidget* parent = nullptr);

  void ShowColors(const RoleColors& colors);

 private:
  void Measure();
  void AddHeader();
  void AddLines();
  void AddDays();
  void AddToday();
  void AddLine(const char* name, int index, const QRect& place);

  int cell_width_ = 0;
  int cell_height_ = 0;
  int text_height_ = 0;
  int title_height_ = 0;
  int grid_top_ = 0;
  QLabel* Label1_ = nullptr;
  QLabel* Label2_ = nullptr;
  std::array<QLabel*, 5> Label3_{};
  QLabel* Label4_ = nullptr;
  std::vector<QWidget*> lines_;
};

}  // namespace veyra

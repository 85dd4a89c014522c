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

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddLines(const char* name, std::size_t count, std::vector<QWidget*>& lines);
  void AddHeader();
  void AddDays();
  void AddToday();
  void PlaceHeader();
  void PlaceGrid();
  int CellHeight() const;
  int GridTop() const;
  int ColumnLeft(int column) const;
  int RowTop(int row) const;

  int text_height_;
  int title_height_;
  QLabel* Label1_ = nullptr;
  QLabel* Label2_ = nullptr;
  std::array<QLabel*, 5> Label3_{};
  QLabel* Label4_ = nullptr;
  std::vector<QWidget*> Line1_;  ///< Across, from the top.
  std::vector<QWidget*> Line2_;  ///< Down, from the left.
};

}  // namespace veyra

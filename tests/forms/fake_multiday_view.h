#pragma once

#include <optional>

#include "forms/multiday/multiday_view.h"

namespace veyra {

/// Keeps what the multiple-day window was told to show.
class FakeMultiDayView : public MultiDayView {
 public:
  MultiDayPlan Plan;
  PlanLine Line;
  bool Works = false;
  std::optional<PickerPlace> Picker;
  bool CloseButton = false;
  Date Selected{};
  bool Visible = false;

  void ShowPlan(const MultiDayPlan& plan) override { Plan = plan; }
  void ShowPlanLine(const PlanLine& line) override { Line = line; }
  void KeepWorking(bool working) override { Works = working; }
  void ShowPicker(const PickerPlace& place, Date selected) override {
    Picker = place;
    Selected = selected;
    CloseButton = true;
  }
  void HidePicker(bool keep_close_button) override {
    Picker.reset();
    CloseButton = keep_close_button;
  }
  void ShowWindow() override { Visible = true; }
  void HideWindow() override { Visible = false; }
};

}  // namespace veyra

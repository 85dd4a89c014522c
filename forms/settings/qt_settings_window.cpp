#include "forms/settings/qt_settings_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

#include "forms/settings/qt_color_selector.h"
#include "forms/settings/qt_preview.h"
#include "forms/settings/qt_swatch.h"
#include "forms/widgets/qt_colors.h"
#include "forms/widgets/qt_help_item.h"

namespace veyra {
namespace {

constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr int kMost = 255;
constexpr int kPageStep = 16;

struct RoleTexts {
  const char* Option;
  const char* ToolTip;
};

constexpr std::array<RoleTexts, kColorRoles> kRoleTexts = {
    {{"&BackGround Color", "BackGround Color"},
     {"H&eader Color", "Header Color"},
     {"&Day Color", "Day Number Color"},
     {"&ToDay's Color", "Today's Number Color"},
     {"ToDay's Bk&Grnd Color", "Today's Background Color"}}};

struct BarTexts {
  const char* Label;
  const char* AccessibleName;
};

constexpr std::array<BarTexts, 3> kBarTexts = {{{"R", "Red"}, {"G", "Green"}, {"B", "Blue"}}};

QString IndexedName(const char* control, std::size_t index) {
  return QStringLiteral("%1(%2)").arg(QLatin1String(control)).arg(index);
}

}  // namespace

QtSettingsWindow::QtSettingsWindow(const HandlerGuard& guard) : guard_(guard) {
  setObjectName(QStringLiteral("frmSettings"));
  setWindowTitle(QStringLiteral("Calendar Color Settings"));
  BuildMenu();
  BuildContents();
  auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, &QWidget::close);
}

void QtSettingsWindow::BuildMenu() {
  AddHelpItem(*this, [this] { guard_.Run([this] { handler_->mnuHelp_Click(); }); });
}

void QtSettingsWindow::BuildContents() {
  auto* contents = new QWidget(this);
  setCentralWidget(contents);
  preview_ = new QtPreview(contents);
  auto* left = new QVBoxLayout;
  left->setSpacing(kMargin);
  left->addWidget(BuildSelector());
  left->addWidget(BuildRoles());
  auto* right = new QVBoxLayout;
  right->setSpacing(kMargin);
  right->addWidget(preview_);
  right->addLayout(BuildMixer());
  right->addStretch();
  right->addWidget(BuildButtons());
  auto* columns = new QHBoxLayout(contents);
  columns->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  columns->setSpacing(kMargin);
  columns->addLayout(left);
  columns->addLayout(right);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
  adjustSize();
}

QGroupBox* QtSettingsWindow::BuildSelector() {
  auto* group = new QGroupBox(QStringLiteral("Color Selector"), centralWidget());
  auto* selector = new QtColorSelector(group);
  auto* column = new QVBoxLayout(group);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(selector, 0, Qt::AlignCenter);
  connect(selector, &QtColorSelector::Pressed, this, [this](std::size_t index, SwatchClick click) {
    guard_.Run([&] { handler_->Colors_MouseDown(index, click); });
  });
  return group;
}

QLayout* QtSettingsWindow::BuildMixer() {
  auto* Label5 = new QLabel(QStringLiteral("Custom Color"), centralWidget());
  Label5->setObjectName(QStringLiteral("Label5"));
  Colors0_ = new QtSwatch(centralWidget());
  Colors0_->setObjectName(IndexedName("Colors", 0));
  Colors0_->setAccessibleName(Label5->text());
  connect(Colors0_, &QtSwatch::Pressed, this,
          [this](SwatchClick click) { guard_.Run([&] { handler_->Colors_MouseDown(0, click); }); });
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kGap);
  grid->addWidget(Label5, 0, 0);
  grid->addWidget(Colors0_, 1, 0, Qt::AlignCenter);
  for (std::size_t index = 0; index < HScroll1_.size(); ++index) {
    AddBar(grid, index);
  }
  grid->setColumnStretch(2, 1);
  return grid;
}

void QtSettingsWindow::AddBar(QGridLayout* grid, std::size_t index) {
  auto* Label6 = new QLabel(QLatin1String(kBarTexts.at(index).Label), centralWidget());
  Label6->setObjectName(IndexedName("Label6", index));
  auto* bar = new QScrollBar(Qt::Horizontal, centralWidget());
  bar->setObjectName(IndexedName("HScroll1", index));
  bar->setAccessibleName(QLatin1String(kBarTexts.at(index).AccessibleName));
  bar->setRange(0, kMost);
  bar->setPageStep(kPageStep);
  bar->setFocusPolicy(Qt::StrongFocus);
  auto* value = new QLabel(QString::number(kMost), centralWidget());
  value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  value->setMinimumWidth(value->sizeHint().width());
  connect(bar, &QScrollBar::valueChanged, this,
          [this, index](int part) { guard_.Run([&] { handler_->HScroll1_Change(index, part); }); });
  const int row = static_cast<int>(index);
  grid->addWidget(Label6, row, 1);
  grid->addWidget(bar, row, 2);
  grid->addWidget(value, row, 3);
  HScroll1_.at(index) = bar;
  bar_values_.at(index) = value;
}

/// Each role stands in one line with the colour that it has now.
QGroupBox* QtSettingsWindow::BuildRoles() {
  auto* Frame3 = new QGroupBox(QStringLiteral("Current Colors"), centralWidget());
  Frame3->setObjectName(QStringLiteral("Frame3"));
  auto* grid = new QGridLayout(Frame3);
  grid->setVerticalSpacing(2);
  for (std::size_t index = 0; index < kColorRoles; ++index) {
    AddRole(grid, index);
  }
  grid->setColumnStretch(1, 1);
  for (std::size_t index = 1; index < kColorRoles; ++index) {
    setTabOrder(CurColors_.at(index - 1), CurColors_.at(index));
  }
  setTabOrder(CurColors_.back(), Option1_.front());
  Option1_.front()->setChecked(true);
  Option1_.front()->setFocus();
  return Frame3;
}

void QtSettingsWindow::AddRole(QGridLayout* grid, std::size_t index) {
  QWidget* Frame3 = grid->parentWidget();
  const RoleTexts& texts = kRoleTexts.at(index);
  auto* option = new QRadioButton(QLatin1String(texts.Option), Frame3);
  option->setObjectName(IndexedName("Option1", index));
  connect(option, &QRadioButton::toggled, this, [this, index](bool selected) {
    if (selected && handler_ != nullptr) {
      guard_.Run([&] { handler_->Option1_Click(static_cast<ColorRole>(index)); });
    }
  });
  auto* swatch = new QtSwatch(Frame3);
  swatch->setObjectName(IndexedName("CurColors", index + 1));
  swatch->setAccessibleName(QLatin1String(texts.ToolTip));
  swatch->setToolTip(QLatin1String(texts.ToolTip));
  connect(swatch, &QtSwatch::Pressed, this, [this, index](SwatchClick click) {
    guard_.Run([&] { handler_->CurColors_MouseDown(index + 1, click); });
  });
  grid->addWidget(swatch, static_cast<int>(index), 0);
  grid->addWidget(option, static_cast<int>(index), 1);
  Option1_.at(index) = option;
  CurColors_.at(index) = swatch;
}

QWidget* QtSettingsWindow::BuildButtons() {
  auto* buttons = new QWidget(centralWidget());
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kGap);
  row->addStretch();
  row->addWidget(MakeButton("Command1", "&Save New Colors", buttons, &frmSettings::Command1_Click));
  row->addWidget(
      MakeButton("Command2", "Te&mpory Use Colors", buttons, &frmSettings::Command2_Click));
  row->addWidget(
      MakeButton("Command3", "&Reset Current Colors", buttons, &frmSettings::Command3_Click));
  return buttons;
}

QPushButton* QtSettingsWindow::MakeButton(const char* name, const char* caption, QWidget* parent,
                                          Handler handler) {
  auto* button = new QPushButton(QLatin1String(caption), parent);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(true);
  connect(button, &QPushButton::clicked, this, [this, handler] {
    frmSettings& settings = *handler_;
    guard_.Run([&settings, handler] { (settings.*handler)(); });
  });
  return button;
}

void QtSettingsWindow::ShowPreview(const RoleColors& colors) {
  preview_->ShowColors(colors);
}

void QtSettingsWindow::ShowCurColors(const RoleColors& colors) {
  for (std::size_t index = 0; index < kColorRoles; ++index) {
    CurColors_.at(index)->ShowColor(ToQColor(colors.at(index), QGuiApplication::palette()));
  }
}

void QtSettingsWindow::ShowCustomColor(const Rgb& color) {
  const QColor shown(color.Red, color.Green, color.Blue);
  Colors0_->ShowColor(shown);
  Colors0_->setToolTip(WebName(shown));
  const std::array<int, 3> parts = {color.Red, color.Green, color.Blue};
  for (std::size_t index = 0; index < parts.size(); ++index) {
    const QSignalBlocker quiet(HScroll1_.at(index));
    HScroll1_.at(index)->setValue(parts.at(index));
    bar_values_.at(index)->setNum(parts.at(index));
  }
}

void QtSettingsWindow::FocusOption(ColorRole role) {
  Option1_.at(static_cast<std::size_t>(role))->setFocus(Qt::OtherFocusReason);
}

Rgb QtSettingsWindow::Resolve(std::int32_t number) const {
  const QColor color = ToQColor(number, QGuiApplication::palette());
  const auto part = [](int value) { return static_cast<std::uint8_t>(value); };
  return {part(color.red()), part(color.green()), part(color.blue())};
}

void QtSettingsWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  guard_.Run([this] { handler_->Form_Unload(); });
}

}  // namespace veyra

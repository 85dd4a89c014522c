#include "forms/free/qt_free_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "data/shown_name.h"
#include "forms/widgets/qt_escape_key.h"
#include "forms/widgets/qt_help_item.h"
#include "forms/widgets/qt_list_keys.h"
#include "forms/widgets/qt_text.h"
#include "forms/widgets/qt_whole_rows.h"
#include "logic/multiday.h"

namespace veyra {
namespace {

constexpr int kMargin = 10;
constexpr int kGap = 6;
constexpr int kFacilitiesWidth = 200;
constexpr int kFacilitiesSeen = 7;
constexpr QSize kComfortableSize(680, 520);
constexpr double kShareOfScreen = 0.85;

/// Which facility an item stands for.
constexpr int kIdRole = Qt::UserRole;

QHBoxLayout* AddRow(QBoxLayout* column) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  column->addLayout(row);
  return row;
}

}  // namespace

QtFreeWindow::QtFreeWindow(const HandlerGuard& guard) : guard_(guard) {
  setObjectName(QStringLiteral("frmFree"));
  setWindowTitle(ToQString(Phrase::Tr("Free Time")));
  BuildContents();
  AddEscapeKey(*this, [this] { close(); });
  AddHelpKey(*this, [this] { guard_.Run([this] { handler_->HelpKey(); }); });
  resize(kComfortableSize.boundedTo(screen()->availableSize() * kShareOfScreen));
}

void QtFreeWindow::BuildContents() {
  auto* contents = new QWidget(this);
  auto* column = new QVBoxLayout(contents);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  auto* upper_part = AddRow(column);
  upper_part->addWidget(BuildFields(), 1);
  upper_part->addWidget(BuildFacilities());
  BuildResults(column);
  setCentralWidget(contents);
  auto* keys = new QtListKeys(
      *List1_, [this] { ReportChosen(); }, this);
  for (QWidget* field : contents->findChildren<QWidget*>()) {
    if (field->focusPolicy() != Qt::NoFocus) {
      keys->Watch(*field);
    }
  }
  Length_->setFocus();
}

QWidget* QtFreeWindow::BuildFields() {
  auto* fields = new QWidget(this);
  auto* column = new QVBoxLayout(fields);
  column->setContentsMargins(0, 0, kMargin, 0);
  AddLength(AddRow(column));
  AddHours(AddRow(column));
  column->addWidget(BuildWeekdays());
  AddDates(AddRow(column));
  column->addStretch(1);
  return fields;
}

QComboBox* QtFreeWindow::AddBox(const char* name, const Phrase& spoken_name) {
  auto* box = new QComboBox(this);
  box->setObjectName(QLatin1String(name));
  box->setAccessibleName(ToQString(spoken_name));
  connect(box, &QComboBox::currentIndexChanged, this, [this] { ReportFields(); });
  return box;
}

void QtFreeWindow::AddLength(QBoxLayout* row) {
  Length_ = AddBox("Length", Phrase::Tr("Length"));
  for (int half_hours = 1; half_hours <= modRes::kLastSlot; ++half_hours) {
    Length_->addItem(ToQString(modRes::LengthText(half_hours)));
  }
  auto* label = new QLabel(ToQString(Phrase::Tr("&Length")), this);
  label->setBuddy(Length_);
  row->addWidget(label);
  row->addWidget(Length_);
  row->addStretch(1);
}

void QtFreeWindow::AddHours(QBoxLayout* row) {
  Hours_ = {AddBox("Hours(0)", Phrase::Tr("Not before")),
            AddBox("Hours(1)", Phrase::Tr("Not after"))};
  for (modRes::TimeSlot slot = modRes::kFirstSlot; slot <= modRes::kLastSlot; ++slot) {
    Hours_[0]->addItem(ToQString(modRes::LongSlotLabel(slot)));
    Hours_[1]->addItem(slot == modRes::kLastSlot ? ToQString(Phrase::Tr("12:00 Midnight"))
                                                 : ToQString(modRes::LongSlotLabel(slot + 1)));
  }
  for (const auto& [caption, index] :
       {std::pair{Phrase::Tr("&between"), 0}, std::pair{Phrase::Tr("an&d"), 1}}) {
    auto* label = new QLabel(ToQString(caption), this);
    label->setBuddy(Hours_.at(static_cast<std::size_t>(index)));
    row->addWidget(label);
    row->addWidget(Hours_.at(static_cast<std::size_t>(index)));
  }
  row->addStretch(1);
}

QWidget* QtFreeWindow::BuildWeekdays() {
  auto* group = new QGroupBox(ToQString(Phrase::Tr("Weekdays")), this);
  auto* row = new QHBoxLayout(group);
  row->setSpacing(kGap);
  for (std::size_t day = 1; day <= Days_.size(); ++day) {
    const auto weekday = static_cast<int>(day);
    auto* box = new QCheckBox(ToQString(modRes::WeekdayAbbreviation(weekday)), group);
    box->setObjectName(QStringLiteral("Days(%1)").arg(day));
    box->setAccessibleName(ToQString(modRes::WeekdayWord(weekday)));
    connect(box, &QCheckBox::clicked, this, [this] { ReportFields(); });
    row->addWidget(box);
    Days_[day] = box;
  }
  row->addStretch(1);
  return group;
}

void QtFreeWindow::AddDates(QBoxLayout* row) {
  const std::array<Phrase, 2> captions = {Phrase::Tr("&From"), Phrase::Tr("&to")};
  const std::array<Phrase, 2> names = {Phrase::Tr("First date"), Phrase::Tr("Last date")};
  for (std::size_t index = 0; index < Text1_.size(); ++index) {
    auto* field = new QLineEdit(this);
    field->setObjectName(QStringLiteral("Text1(%1)").arg(index));
    field->setAccessibleName(ToQString(names.at(index)));
    connect(field, &QLineEdit::textChanged, this, [this] { ReportFields(); });
    auto* label = new QLabel(ToQString(captions.at(index)), this);
    label->setBuddy(field);
    row->addWidget(label);
    row->addWidget(field, 1);
    Text1_.at(index) = field;
  }
}

QGroupBox* QtFreeWindow::BuildFacilities() {
  auto* group = new QGroupBox(ToQString(Phrase::Tr("Facilities")), this);
  All_ = new QCheckBox(ToQString(Phrase::Tr("&All")), group);
  All_->setObjectName(QStringLiteral("All"));
  All_->setAccessibleName(ToQString(Phrase::Tr("All facilities")));
  Facilities_ = new QListWidget(group);
  Facilities_->setObjectName(QStringLiteral("Facilities"));
  Facilities_->setAccessibleName(ToQString(Phrase::Tr("Facilities")));
  Facilities_->setTextElideMode(Qt::ElideRight);
  Facilities_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  FacilityRows_ = new QtWholeRows(Facilities_, [this] { return Facilities_->sizeHintForRow(0); });
  FacilityRows_->setFixedWidth(kFacilitiesWidth);
  FacilityRows_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
  auto* column = new QVBoxLayout(group);
  column->addWidget(All_);
  column->addWidget(FacilityRows_, 1);
  connect(All_, &QCheckBox::clicked, this, &QtFreeWindow::TickAll);
  connect(Facilities_, &QListWidget::itemChanged, this, [this] { ReportFields(); });
  return group;
}

void QtFreeWindow::BuildResults(QBoxLayout* column) {
  List1_ = new QListWidget(this);
  List1_->setObjectName(QStringLiteral("List1"));
  List1_->setAccessibleName(ToQString(Phrase::Tr("Free times")));
  List1_->setUniformItemSizes(true);
  List1_->setTextElideMode(Qt::ElideRight);
  List1_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(List1_, &QListWidget::itemDoubleClicked, this, [this] { ReportChosen(); });
  lblState_ = new QLabel(this);
  lblState_->setObjectName(QStringLiteral("lblState"));
  lblState_->setTextFormat(Qt::PlainText);
  lblState_->setWordWrap(true);
  column->addWidget(new QtWholeRows(List1_, [this] { return List1_->sizeHintForRow(0); }), 1);
  column->addWidget(lblState_);
}

void QtFreeWindow::ShowFields(const FreeFields& fields, const std::vector<Facility>& facilities) {
  is_filling_ = true;
  Length_->setCurrentIndex(fields.HalfHours - 1);
  Hours_[0]->setCurrentIndex(fields.Hours.First - 1);
  Hours_[1]->setCurrentIndex(fields.Hours.Last - 1);
  for (std::size_t day = 1; day <= Days_.size(); ++day) {
    Days_[day]->setChecked(fields.Days[day]);
  }
  for (std::size_t index = 0; index < Text1_.size(); ++index) {
    Text1_.at(index)->setText(OneLine(fields.Text1.at(index)));
  }
  ShowFacilities(fields, facilities);
  is_filling_ = false;
}

void QtFreeWindow::ShowFacilities(const FreeFields& fields,
                                  const std::vector<Facility>& facilities) {
  Facilities_->clear();
  for (const Facility& facility : facilities) {
    auto* item = new QListWidgetItem(OneLine(ShownName(facility.Name)), Facilities_);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(fields.LeftOut.contains(facility.ID) ? Qt::Unchecked : Qt::Checked);
    item->setData(kIdRole, static_cast<qlonglong>(facility.ID));
    item->setToolTip(PlainToolTip(facility.Name));
  }
  FacilityRows_->SeeAtLeast(std::clamp(Facilities_->count(), 1, kFacilitiesSeen));
  ShowWhetherAll();
}

void QtFreeWindow::TickAll(bool ticked) {
  is_filling_ = true;
  for (int row = 0; row < Facilities_->count(); ++row) {
    Facilities_->item(row)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
  }
  is_filling_ = false;
  ReportFields();
}

void QtFreeWindow::ShowWhetherAll() {
  All_->setChecked(Fields().LeftOut.empty());
}

FreeFields QtFreeWindow::Fields() const {
  FreeFields fields;
  fields.HalfHours = Length_->currentIndex() + 1;
  fields.Hours = {Hours_[0]->currentIndex() + 1, Hours_[1]->currentIndex() + 1};
  for (std::size_t day = 1; day <= Days_.size(); ++day) {
    fields.Days[day] = Days_[day]->isChecked();
  }
  for (std::size_t index = 0; index < Text1_.size(); ++index) {
    fields.Text1.at(index) = ToUtf8(Text1_.at(index)->text());
  }
  for (int row = 0; row < Facilities_->count(); ++row) {
    const QListWidgetItem* item = Facilities_->item(row);
    if (item->checkState() != Qt::Checked) {
      fields.LeftOut.insert(item->data(kIdRole).toLongLong());
    }
  }
  return fields;
}

void QtFreeWindow::ReportFields() {
  if (is_filling_ || handler_ == nullptr) {
    return;
  }
  ShowWhetherAll();
  guard_.Run([this] { handler_->Fields_Change(Fields()); });
}

void QtFreeWindow::ShowFree(const FreePicture& picture) {
  const QString chosen = ChosenLine(*List1_);
  List1_->clear();
  for (const Phrase& phrase : picture.Lines) {
    const QString line = ToQString(phrase);
    auto* item = new QListWidgetItem(OneLine(line), List1_);
    item->setToolTip(PlainToolTip(line));
  }
  ChooseLine(*List1_, chosen, 0);
  lblState_->setText(ToQString(picture.State));
}

void QtFreeWindow::KeepWorking(bool working) {
  work_.KeepWorking(working);
}

void QtFreeWindow::CloseWindow() {
  close();
}

void QtFreeWindow::ReportChosen() {
  const int line = List1_->currentRow();
  if (line >= 0) {
    guard_.Run([&] { handler_->List1_Chosen(static_cast<std::size_t>(line)); });
  }
}

void QtFreeWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  guard_.Run([this] { handler_->Form_Unload(); });
}

}  // namespace veyra

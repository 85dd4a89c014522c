#include "forms/about/qt_about_window.h"

#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "forms/about/qt_about_label.h"
#include "forms/about/qt_calendar_leaf.h"
#include "forms/widgets/qt_help_item.h"

namespace veyra {
namespace {

constexpr int kMargin = 16;
constexpr int kTitleSize = 17;
constexpr std::size_t kTitle = 0;
constexpr std::size_t kVersion = 5;

QFont TitleFont() {
  QFont font(QStringLiteral("Palatino Linotype"), kTitleSize, QFont::DemiBold);
  font.setFamilies({QStringLiteral("Palatino Linotype"), QStringLiteral("Palatino"),
                    QStringLiteral("P052"), QStringLiteral("TeX Gyre Pagella"),
                    QStringLiteral("Liberation Serif"), QStringLiteral("DejaVu Serif")});
  font.setStyleHint(QFont::Serif);
  return font;
}

}  // namespace

QtAboutWindow::QtAboutWindow(const HandlerGuard& guard) : guard_(guard) {
  setObjectName(QStringLiteral("frmAbout"));
  setWindowTitle(QStringLiteral("Veyra About"));
  auto* contents = new QWidget(this);
  setCentralWidget(contents);
  AddLabels();
  auto* column = new QVBoxLayout(contents);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kMargin);
  column->addWidget(BuildFrame(), 1);
  column->addWidget(BuildExit(), 0, Qt::AlignRight);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
  adjustSize();
  auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(escape, &QShortcut::activated, this, &QWidget::close);
  AddHelpKey(*this, [this] { guard_.Run([this] { handler_->HelpKey(); }); });
}

void QtAboutWindow::AddLabels() {
  for (std::size_t index = 0; index < labAbout_.size(); ++index) {
    auto* label = new QtAboutLabel(QString::fromUtf8(kAboutLabels.at(index)), centralWidget());
    label->setObjectName(QStringLiteral("labAbout(%1)").arg(index));
    connect(label, &QtAboutLabel::Clicked, this,
            [this, index] { guard_.Run([&] { handler_->labAbout_Click(index); }); });
    label->setVisible(!label->text().isEmpty());
    labAbout_.at(index) = label;
  }
  labAbout_.at(kTitle)->setFont(TitleFont());
  labAbout_.at(kVersion)->setFont({QStringLiteral("MS Sans Serif"), font().pointSize()});
  labAbout_.at(kLinkLabel)->MakeLink();
}

QWidget* QtAboutWindow::BuildFrame() {
  auto* Frame1 = new QFrame(centralWidget());
  Frame1->setObjectName(QStringLiteral("Frame1"));
  Frame1->setFrameShape(QFrame::StyledPanel);
  auto* Picture2 = new QtCalendarLeaf(Frame1);
  Picture2->setObjectName(QStringLiteral("Picture2"));
  auto* texts = new QVBoxLayout;
  texts->setSpacing(3);
  texts->addWidget(labAbout_.at(kTitle));
  texts->addWidget(labAbout_.at(kVersion));
  texts->addSpacing(kMargin);
  for (std::size_t index = kTitle + 1; index < kVersion; ++index) {
    texts->addWidget(labAbout_.at(index), 0, Qt::AlignLeft);
  }
  auto* row = new QHBoxLayout(Frame1);
  row->setContentsMargins(kMargin, kMargin, 2 * kMargin, kMargin);
  row->setSpacing(kMargin);
  row->addWidget(Picture2, 0, Qt::AlignTop);
  row->addLayout(texts);
  return Frame1;
}

QWidget* QtAboutWindow::BuildExit() {
  auto* Command1 = new QPushButton(QStringLiteral("E&xit"), centralWidget());
  Command1->setObjectName(QStringLiteral("Command1"));
  Command1->setAutoDefault(true);
  Command1->setFocus();
  connect(Command1, &QPushButton::clicked, this,
          [this] { guard_.Run([this] { handler_->Command1_Click(); }); });
  return Command1;
}

void QtAboutWindow::CloseWindow() {
  close();
}

void QtAboutWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  guard_.Run([this] { handler_->Form_Unload(); });
}

}  // namespace veyra

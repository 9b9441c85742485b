#include "skin/theme.h"

namespace quorvel::theme {

namespace {
// The skin's dark frame, its light text and its blue accent.
const QColor kDark(0x1b, 0x20, 0x27);
const QColor kLight(0xe6, 0xed, 0xf3);

const char *const kScrollBar = "QScrollBar:vertical { background: #161b22; width: 10px; margin: 0; }"
                               "QScrollBar::handle:vertical { background: #3d4754; border-radius: 4px; "
                               "min-height: 24px; }"
                               "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }";
} // namespace

QString menuBarStyleSheet()
{
    // The strip shows through; an open or pointed-at caption takes the look
    // of the skin's menu button.
    return QStringLiteral(
        "QMenuBar { background: transparent; color: #F2FFFF; border: none; }"
        "QMenuBar::item { background: transparent; padding: 3px 8px; margin: 2px 0; border-radius: 3px; }"
        "QMenuBar::item:selected, QMenuBar::item:pressed { background: #33404D; color: #FFFFFF; }"
        "QMenuBar::item:disabled { color: #7D8792; }");
}

QString menuStyleSheet()
{
    return QStringLiteral("QMenuBar, QMenu { background: #717171; color: #F2FFFF; }"
                          "QMenuBar::item { background: transparent; padding: 2px 8px; }"
                          "QMenuBar::item:selected, QMenu::item:selected { background: #E0E0E0; color: #202020; }"
                          "QMenu::item:disabled { color: #B8B8B8; }"
                          "QMenu::separator { height: 1px; background: #E0E0E0; margin: 3px 6px; }");
}

QPalette listPalette(QPalette base)
{
    base.setColor(QPalette::Window, kDark);
    base.setColor(QPalette::Base, kDark);
    base.setColor(QPalette::Text, kLight);
    base.setColor(QPalette::WindowText, kLight);
    base.setColor(QPalette::Mid, QColor(0x2d, 0x33, 0x3b));
    base.setColor(QPalette::Highlight, QColor(0x2f, 0x81, 0xf7));
    base.setColor(QPalette::HighlightedText, Qt::white);
    return base;
}

QString listScrollBarStyleSheet()
{
    return QString::fromLatin1(kScrollBar)
           + QStringLiteral("QScrollBar::handle:vertical:hover { background: #4c9dff; }"
                            "QScrollBar::add-page, QScrollBar::sub-page { background: none; }");
}

QString reportStyleSheet()
{
    return QStringLiteral(R"(
QDialog { background: #1b2027; border: 1px solid #3d4754; }
QScrollArea, QWidget#reportGrid { background: #1b2027; }
QLabel { color: #e6edf3; }
QLabel[role="label"] { color: #9aa7b4; }
QLabel[role="heading"] { color: #59b4ff; font-weight: bold; padding-top: 6px; }
QLabel[role="title"] { color: #ffffff; font-weight: bold; }
QPushButton { background: #2d333b; color: #e6edf3; border: 1px solid #3d4754; border-radius: 3px;
              padding: 4px 18px; min-width: 60px; }
QPushButton:hover { background: #3d4754; }
QPushButton:focus { border-color: #4c9dff; }
)") + QString::fromLatin1(kScrollBar);
}

QPalette dialogPalette(QPalette base)
{
    base = listPalette(base);
    // The style outlines check boxes and option buttons in a shade of the
    // window colour; the dialog paints its own background, so this colour
    // only shows in those outlines.
    base.setColor(QPalette::Window, QColor(0x9a, 0xa7, 0xb4));
    base.setColor(QPalette::Base, QColor(0x16, 0x1b, 0x22));
    base.setColor(QPalette::Button, QColor(0x2d, 0x33, 0x3b));
    base.setColor(QPalette::ButtonText, kLight);
    return base;
}

QString dialogStyleSheet()
{
    return QStringLiteral(R"(
QLabel { color: #e6edf3; }
QGroupBox { color: #59b4ff; font-weight: bold; border: 1px solid #3d4754; border-radius: 4px;
            margin-top: 9px; padding: 6px 4px 2px 4px; }
QGroupBox::title { subcontrol-origin: margin; left: 8px; padding: 0 4px; }
QLabel[role="heading"] { color: #59b4ff; font-weight: bold; }
QLabel[role="muted"] { color: #9aa7b4; }
QFrame#positionPad { border: 1px dashed #3d4754; border-radius: 3px; background: #161b22; }
)") + QString::fromLatin1(kScrollBar);
}

QString overlayStyleSheet()
{
    return QStringLiteral(R"(
QFrame#resumePrompt { background: rgba(27, 32, 39, 230); border: 1px solid #3d4754; border-radius: 4px; }
QPushButton { background: #2d333b; color: #e6edf3; border: 1px solid #3d4754; border-radius: 3px; padding: 3px 8px; }
QPushButton:hover { background: #3d4754; }
QPushButton:default, QPushButton:focus { border-color: #4c9dff; }
)");
}

QString preferencesStyleSheet()
{
    return reportStyleSheet() + QStringLiteral(R"(
QGroupBox { color: #59b4ff; font-weight: bold; border: 1px solid #3d4754; border-radius: 3px;
            margin-top: 10px; padding: 8px 6px 4px 6px; }
QGroupBox::title { subcontrol-origin: margin; left: 8px; padding: 0 3px; }
QRadioButton, QCheckBox { color: #e6edf3; spacing: 6px; }
QRadioButton:disabled, QCheckBox:disabled { color: #7d8792; }
QRadioButton::indicator, QCheckBox::indicator { width: 11px; height: 11px; border: 1px solid #7d8792;
                                                background: #161b22; }
QRadioButton::indicator { border-radius: 6px; }
QRadioButton::indicator:checked, QCheckBox::indicator:checked { background: #4c9dff; border-color: #9ccaff; }
)");
}

} // namespace quorvel::theme

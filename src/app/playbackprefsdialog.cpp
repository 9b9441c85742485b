#include "playbackprefsdialog.h"

#include "skin/theme.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quorvel {

PlaybackPrefsDialog::PlaybackPrefsDialog(const PlaybackPrefs &prefs, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmPlaybackPreferences"));
    setWindowTitle(QStringLiteral("Playback preferences"));
    setStyleSheet(theme::preferencesStyleSheet());

    auto *resumeBox = new QGroupBox(QStringLiteral("A file played part way"), this);
    auto *resumeColumn = new QVBoxLayout(resumeBox);
    m_resume = new QButtonGroup(this);
    const std::pair<ResumeMode, QString> choices[] = {
        {ResumeMode::Ask, QStringLiteral("Resumes, and offers to start over for 5 seconds")},
        {ResumeMode::Always, QStringLiteral("Always resumes where it was left")},
        {ResumeMode::Never, QStringLiteral("Always starts from the beginning")},
    };
    for (const auto &[mode, caption] : choices) {
        auto *button = new QRadioButton(caption, resumeBox);
        m_resume->addButton(button, static_cast<int>(mode));
        resumeColumn->addWidget(button);
        button->setChecked(mode == prefs.resume);
    }

    auto *folderBox = new QGroupBox(QStringLiteral("Folders"), this);
    auto *folderColumn = new QVBoxLayout(folderBox);
    m_subfolders = new QCheckBox(QStringLiteral("\"Open folder...\" and dropped folders include subfolders"),
                                 folderBox);
    m_subfolders->setChecked(prefs.folderSubfolders);
    m_nextInFolder = new QCheckBox(QStringLiteral("When the last item ends, play the next file of its folder"),
                                   folderBox);
    m_nextInFolder->setChecked(prefs.playNextInFolder);
    folderColumn->addWidget(m_subfolders);
    folderColumn->addWidget(m_nextInFolder);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(14, 12, 14, 12);
    column->setSpacing(10);
    column->addWidget(resumeBox);
    column->addWidget(folderBox);
    column->addWidget(buttons);
    setFixedSize(sizeHint());
}

PlaybackPrefs PlaybackPrefsDialog::prefs() const
{
    PlaybackPrefs p;
    p.resume = static_cast<ResumeMode>(m_resume->checkedId());
    p.folderSubfolders = m_subfolders->isChecked();
    p.playNextInFolder = m_nextInFolder->isChecked();
    return p;
}

std::optional<PlaybackPrefs> PlaybackPrefsDialog::edit(const PlaybackPrefs &prefs, QWidget *parent)
{
    PlaybackPrefsDialog dialog(prefs, parent);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.prefs();
}

} // namespace quorvel

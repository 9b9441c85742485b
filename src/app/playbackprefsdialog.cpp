#include "playbackprefsdialog.h"

#include "common/paths.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quorvel {

namespace {

// Style sheets stop the palette at the dialog; the controls need its light
// text and visible outlines, as on the "Options" dialog.
template <typename Widget>
Widget *themed(Widget *widget, const QWidget *dialog)
{
    widget->setPalette(dialog->palette());
    return widget;
}

QLineEdit *languageField(const QStringList &languages, const QWidget *dialog)
{
    auto *field = themed(new QLineEdit(languages.join(u", "_qs)), dialog);
    QPalette muted = field->palette();
    muted.setColor(QPalette::PlaceholderText, QColor(0x7d, 0x87, 0x92));
    field->setPalette(muted);
    field->setPlaceholderText(u"the file's own choice"_qs);
    field->setMinimumWidth(150);
    return field;
}

} // namespace

PlaybackPrefsDialog::PlaybackPrefsDialog(const SkinImages &images, const PlaybackPrefs &prefs, QWidget *parent)
    : OkCancelDialog(images, u"Playback preferences"_qs, parent)
{
    setObjectName(u"frmPlaybackPreferences"_qs);
    auto *form = new QWidget;
    auto *column = new QVBoxLayout(form);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);

    auto *resumeBox = new QGroupBox(u"A file played part way"_qs);
    auto *resumeColumn = new QVBoxLayout(resumeBox);
    m_resume = new QButtonGroup(this);
    const std::pair<ResumeMode, QString> choices[] = {
        {ResumeMode::Ask, u"Resumes, and offers to start over for 5 seconds"_qs},
        {ResumeMode::Always, u"Always resumes where it was left"_qs},
        {ResumeMode::Never, u"Always starts from the beginning"_qs},
    };
    for (const auto &[mode, caption] : choices) {
        auto *button = themed(new QRadioButton(caption), this);
        m_resume->addButton(button, int(mode));
        resumeColumn->addWidget(button);
        button->setChecked(mode == prefs.resume);
    }
    column->addWidget(resumeBox);

    auto *folderBox = new QGroupBox(u"Folders"_qs);
    auto *folderColumn = new QVBoxLayout(folderBox);
    m_subfolders = themed(new QCheckBox(u"\"Open folder...\" and dropped folders include subfolders"_qs), this);
    m_subfolders->setChecked(prefs.folderSubfolders);
    m_nextInFolder = themed(new QCheckBox(u"When the last item ends, play the next file of its folder"_qs), this);
    m_nextInFolder->setChecked(prefs.playNextInFolder);
    folderColumn->addWidget(m_subfolders);
    folderColumn->addWidget(m_nextInFolder);
    column->addWidget(folderBox);

    column->addWidget(buildTracks(prefs));
    setForm(form);
}

QWidget *PlaybackPrefsDialog::buildTracks(const PlaybackPrefs &prefs)
{
    auto *box = new QGroupBox(u"Tracks"_qs);
    auto *grid = new QGridLayout(box);
    grid->setHorizontalSpacing(10);
    grid->setColumnStretch(1, 1);
    m_audioLanguages = languageField(prefs.audioLanguages, this);
    m_subtitleLanguages = languageField(prefs.subtitleLanguages, this);
    grid->addWidget(new QLabel(u"Preferred audio languages:"_qs), 0, 0);
    grid->addWidget(m_audioLanguages, 0, 1);
    grid->addWidget(new QLabel(u"Preferred subtitle languages:"_qs), 1, 0);
    grid->addWidget(m_subtitleLanguages, 1, 1);
    auto *hint = new QLabel(u"Language codes, best first, for example \"ja, en\"."_qs);
    hint->setProperty("role", u"muted"_qs);
    grid->addWidget(hint, 2, 1);

    m_skipCommentary = themed(new QCheckBox(u"Skip commentary tracks"_qs), this);
    m_skipCommentary->setChecked(prefs.skipCommentary);
    grid->addWidget(m_skipCommentary, 3, 0, 1, 2);

    grid->addWidget(new QLabel(u"Subtitles for the hearing impaired:"_qs), 4, 0);
    auto *choices = new QHBoxLayout;
    choices->setSpacing(14);
    m_hearingImpaired = new QButtonGroup(this);
    const std::pair<HearingImpaired, QString> answers[] = {
        {HearingImpaired::Yes, u"Yes"_qs}, {HearingImpaired::No, u"No"_qs}, {HearingImpaired::Any, u"Any"_qs}};
    for (const auto &[answer, caption] : answers) {
        auto *button = themed(new QRadioButton(caption), this);
        m_hearingImpaired->addButton(button, int(answer));
        button->setChecked(answer == prefs.hearingImpaired);
        choices->addWidget(button);
    }
    choices->addStretch();
    grid->addLayout(choices, 4, 1);
    return box;
}

PlaybackPrefs PlaybackPrefsDialog::prefs() const
{
    PlaybackPrefs p;
    p.resume = static_cast<ResumeMode>(m_resume->checkedId());
    p.folderSubfolders = m_subfolders->isChecked();
    p.playNextInFolder = m_nextInFolder->isChecked();
    p.audioLanguages = ParseLanguageList(m_audioLanguages->text());
    p.subtitleLanguages = ParseLanguageList(m_subtitleLanguages->text());
    p.skipCommentary = m_skipCommentary->isChecked();
    p.hearingImpaired = static_cast<HearingImpaired>(m_hearingImpaired->checkedId());
    return p;
}

std::optional<PlaybackPrefs> PlaybackPrefsDialog::edit(const PlaybackPrefs &prefs, const SkinImages &images,
                                                       QWidget *parent)
{
    PlaybackPrefsDialog dialog(images, prefs, parent);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.prefs();
}

std::optional<PlaybackPrefs> PlaybackPrefsDialog::edit(const PlaybackPrefs &prefs, QWidget *parent)
{
    SkinImages images;
    images.LoadSkinImages(ProgramFolder());
    return edit(prefs, images, parent);
}

} // namespace quorvel

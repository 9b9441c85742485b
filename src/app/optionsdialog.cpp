#include "optionsdialog.h"

#include "common/logging.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <utility>

namespace quorvel {

namespace {

constexpr int kMargin = 10; // between the frame and the tabs, pages and buttons
constexpr int kTabTop = SkinnedDialog::kTitleHeight + kMargin;
constexpr QSize kTab(96, 24);    // the skin's tab picture
constexpr QSize kButton(75, 23); // the skin's text button
constexpr int kSelectWidth = 92; // the selection buttons beside the association list
constexpr int kPageTop = kTabTop + kTab.height() + 12;
constexpr int kCommandsHeight = kButton.height() + 2 * kMargin;

const QString kTabCaptions[] = {u"Player"_qs, u"Assocciations"_qs, u"SnapShot"_qs};
const QString kSelectCaptions[] = {u"Select All"_qs, u"Deselect All"_qs, u"Audio Files"_qs, u"Video Files"_qs};
// The commands from the right: Cancel on the outside, as the user knows it.
const std::pair<int, QString> kCommands[] = {
    {RegionCancel, u"Cancle"_qs}, {RegionApply, u"Apply"_qs}, {RegionOK, u"OK"_qs}};

// Where each playlist position sits in the pad: the place the playlist takes.
const QPoint kPadCell[] = {{0, 1}, {2, 1}, {1, 0}, {1, 2}, {1, 1}};
const QString kPadTips[] = {u"Left"_qs, u"Right"_qs, u"Top"_qs, u"Bottom"_qs, u"Fill"_qs};

} // namespace

OptionsDialog::OptionsDialog(const SkinImages &images, Settings &settings, OptionsHost &host, FileTypeIcon icon,
                             QWidget *parent)
    : SkinnedDialog(images, u"Options"_qs, RegionCount, RegionCaption, Bottom::Corners, parent), m_model(settings, host)
{
    // Above other windows while it is open, as the main window may not be.
    setWindowFlag(Qt::WindowStaysOnTopHint);
    setFont(textFont());
    m_model.open();

    m_pages = new QStackedWidget(this);
    m_pages->addWidget(buildPlayerPage());
    m_pages->addWidget(buildAssociationPage(icon));
    m_pages->addWidget(new QWidget); // "SnapShot" has nothing to set
    // The pages lie over the selection buttons' place: the pointer's moves
    // must pass through them to light the buttons up.
    m_pages->setMouseTracking(true);
    for (int i = 0; i < m_pages->count(); ++i)
        m_pages->widget(i)->setMouseTracking(true);
    const QSize page = m_pages->widget(0)->sizeHint().expandedTo(QSize(3 * kTab.width() + 300, 0));
    setFixedSize(page.width() + 2 * (kLeftBorder + kMargin), kPageTop + page.height() + kCommandsHeight + 15);
    m_pages->setGeometry(kLeftBorder + kMargin, kPageTop, page.width(), page.height());
    refresh();
}

QWidget *OptionsDialog::buildPlayerPage()
{
    auto *pageWidget = new QWidget;
    auto *columns = new QHBoxLayout(pageWidget);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(12);
    QVBoxLayout *left = new QVBoxLayout, *right = new QVBoxLayout;
    columns->addLayout(left);
    columns->addLayout(right);

    QHash<QString, QGroupBox *> groups;
    QGridLayout *pad = nullptr;
    const auto &controls = OptionsModel::PlayerControls();
    for (size_t i = 0; i < controls.size(); ++i) {
        const PlayerControl &c = controls[i];
        QGroupBox *&group = groups[c.group];
        if (!group) {
            group = new QGroupBox(c.group);
            (groups.size() <= 2 ? left : right)->addWidget(group);
            auto *box = new QVBoxLayout(group);
            if (c.caption.isEmpty()) {
                // The positions have no captions: they sit where the playlist would.
                box->addWidget(new QLabel(u"Choose The Playlist position"_qs));
                auto *frame = new QFrame;
                frame->setObjectName(u"positionPad"_qs);
                frame->setFixedSize(120, 78);
                pad = new QGridLayout(frame);
                pad->setContentsMargins(6, 4, 6, 4);
                box->addWidget(frame, 0, Qt::AlignHCenter);
            }
        }
        QAbstractButton *button = nullptr;
        if (c.kind == PlayerControl::CheckBox) {
            button = new QCheckBox(c.caption);
        } else {
            button = new QRadioButton(c.caption);
            button->setAutoExclusive(false); // the model chooses
        }
        // Style sheets stop the palette at the dialog; the buttons need its
        // light text and visible outlines.
        button->setPalette(palette());
        if (c.caption.isEmpty()) {
            button->setToolTip(kPadTips[c.value]);
            pad->addWidget(button, kPadCell[c.value].y(), kPadCell[c.value].x(), Qt::AlignCenter);
        } else {
            group->layout()->addWidget(button);
        }
        connect(button, &QAbstractButton::toggled, this, [this, i](bool on) {
            m_model.setChecked(int(i), on);
            refresh();
        });
        m_controls.push_back(button);
    }
    left->addStretch();
    right->addStretch();
    return pageWidget;
}

QWidget *OptionsDialog::buildAssociationPage(const FileTypeIcon &icon)
{
    auto *pageWidget = new QWidget;
    auto *layout = new QVBoxLayout(pageWidget);
    layout->setContentsMargins(0, 0, kSelectWidth + kMargin, 0);
    layout->addWidget(new QLabel(u"File Extensions:"_qs));
    m_rows = new QTreeWidget;
    m_rows->setColumnCount(2);
    m_rows->setHeaderHidden(true);
    m_rows->setRootIsDecorated(false);
    m_rows->setIconSize(QSize(16, 16));
    m_rows->header()->setStretchLastSection(true);
    for (int row = 0; row < kMediaExtensionCount; ++row) {
        auto *item = new QTreeWidgetItem(m_rows, {OptionsModel::AssociationRowTexts()[row]});
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setIcon(0, icon ? icon(MediaExtensions()[row]) : QIcon());
        // Extensions of one type are one association: the row says with which.
        QStringList others;
        for (int other : OptionsModel::RowsSharingType(row))
            others << u"*."_qs + MediaExtensions()[other];
        if (!others.isEmpty()) {
            item->setText(1, u"same type as "_qs + others.join(u", "_qs));
            item->setForeground(1, QColor(0x9a, 0xa7, 0xb4));
        }
    }
    m_rows->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_rows->setPalette(palette()); // the check boxes' outlines, as on the first page
    connect(m_rows, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem *item, int column) {
        if (column != 0)
            return;
        m_model.setRowChecked(m_rows->indexOfTopLevelItem(item), item->checkState(0) == Qt::Checked);
        refresh();
    });
    layout->addWidget(m_rows, 1);
    return pageWidget;
}

void OptionsDialog::refresh()
{
    for (size_t i = 0; i < m_controls.size(); ++i) {
        const QSignalBlocker quiet(m_controls[i]);
        m_controls[i]->setChecked(m_model.isChecked(int(i)));
    }
    {
        const QSignalBlocker quiet(m_rows);
        for (int row = 0; row < kMediaExtensionCount; ++row)
            m_rows->topLevelItem(row)->setCheckState(0, m_model.isRowChecked(row) ? Qt::Checked : Qt::Unchecked);
    }
    const int index = m_model.CurrentPage() - PagePlayer;
    if (m_pages->currentIndex() != index) {
        m_pages->setCurrentIndex(index);
        qCDebug(lcApp) << "options page" << m_model.CurrentPage();
        if (m_model.CurrentPage() == PageAssocciations)
            m_rows->setFocus();
    }
    update();
}

QRect OptionsDialog::tabRect(int page) const
{
    return QRect(QPoint(kLeftBorder + kMargin + (page - PagePlayer) * (kTab.width() + 2), kTabTop), kTab);
}

void OptionsDialog::paintRegions(QPainter &p)
{
    const int W = width(), H = height();
    p.setFont(textFont());
    for (int page = PagePlayer; page <= PageSnapShot; ++page) {
        const int region = RegionPlayer + page - PagePlayer;
        const bool chosen = page == m_model.CurrentPage();
        // The chosen tab in full; the others dimmed, lighter under the pointer.
        p.setOpacity(chosen ? 1.0 : regionState(region) == StateOver ? 0.8 : 0.5);
        drawRegion(p, region, images().single(SkinSingle::TabButton), tabRect(page));
        p.setOpacity(1.0);
        p.setPen(chosen ? QColor(Qt::white) : QColor(0xb8, 0xc2, 0xcc));
        p.drawText(tabRect(page), Qt::AlignCenter, kTabCaptions[page - PagePlayer]);
    }
    DrawSkinImage(p, images().single(SkinSingle::HLine), kLeftBorder + kMargin, kTabTop + kTab.height(),
                  W - 2 * (kLeftBorder + kMargin), 2);
    int x = W - kRightBorder - kMargin;
    for (const auto &[region, text] : kCommands) {
        x -= kButton.width();
        drawTextButton(p, region, QRect(QPoint(x, H - 15 - kMargin - kButton.height()), kButton), text);
        x -= 8;
    }
    if (m_model.CurrentPage() == PageAssocciations) {
        const QPoint list = m_rows->mapTo(this, QPoint(m_rows->width() + kMargin, 0));
        for (int i = 0; i < 4; ++i)
            drawTextButton(p, RegionSelectAll + i,
                           QRect(list + QPoint(0, i * (kButton.height() + 8)), QSize(kSelectWidth, kButton.height())),
                           kSelectCaptions[i]);
    }
}

void OptionsDialog::regionClicked(int region)
{
    qCDebug(lcApp) << "options region" << region;
    if (m_model.click(region))
        done(region == RegionOK ? Accepted : Rejected);
    else
        refresh();
}

void OptionsDialog::keyPressEvent(QKeyEvent *event)
{
    const int page = m_model.CurrentPage();
    if (event->matches(QKeySequence::NextChild)
        || (event->key() == Qt::Key_PageDown && event->modifiers() == Qt::ControlModifier))
        regionClicked(RegionPlayer + page % 3);
    else if (event->matches(QKeySequence::PreviousChild)
             || (event->key() == Qt::Key_PageUp && event->modifiers() == Qt::ControlModifier))
        regionClicked(RegionPlayer + (page + 1) % 3);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        regionClicked(RegionOK);
    else
        SkinnedDialog::keyPressEvent(event); // Escape rejects: Cancel
}

void OptionsDialog::done(int result)
{
    SkinnedDialog::done(result);
    // However it closed, the main window follows the settings again.
    if (!std::exchange(m_closed, true))
        m_model.closed();
}

} // namespace quorvel

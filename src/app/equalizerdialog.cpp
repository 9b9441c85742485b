#include "equalizerdialog.h"

#include "common/logging.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QVBoxLayout>

namespace quorvel {

namespace {
// The sliders count tenths of a dB, the levels' step.
constexpr int kTenths = 10;
constexpr int kSliderHeight = 150;
constexpr int kColumnWidth = 40; // room for "+11.2"

QString levelText(double dB)
{
    return (dB > 0 ? u"+"_qs : QString()) + QString::number(dB, 'f', 1);
}

QLabel *centred(const QString &text, const char *role = nullptr)
{
    auto *label = new QLabel(text);
    label->setAlignment(Qt::AlignCenter);
    if (role)
        label->setProperty("role", QString::fromLatin1(role));
    return label;
}
} // namespace

EqualizerDialog::EqualizerDialog(const SkinImages &images, EqualizerModel &model,
                                 const std::array<double, kEqualizerBandCount> &frequencies, QWidget *parent)
    : OkCancelDialog(images, u"Equalizer"_qs, parent), m_model(model)
{
    setObjectName(u"frmEqualizer"_qs);
    auto *form = new QWidget;
    auto *column = new QVBoxLayout(form);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(10);

    auto *top = new QHBoxLayout;
    m_enabled = new QCheckBox(u"Enable"_qs);
    m_enabled->setPalette(palette()); // style sheets stop the palette at the dialog
    connect(m_enabled, &QCheckBox::toggled, this, [this](bool on) {
        m_model.setEnabled(on);
        refresh();
    });
    top->addWidget(m_enabled);
    top->addStretch();
    top->addWidget(new QLabel(u"Preset:"_qs));
    m_presets = new QComboBox;
    QPalette chooser = palette();
    chooser.setColor(QPalette::PlaceholderText, chooser.color(QPalette::Text)); // "Custom" is a value too
    m_presets->setPalette(chooser);
    // The list opens in a window of its own, outside the dialog's colours.
    m_presets->view()->setStyleSheet(
        u"QAbstractItemView { background: #161b22; color: #e6edf3; border: 1px solid #3d4754; "
        "selection-background-color: #2f81f7; selection-color: #ffffff; outline: 0; }"_qs);
    // What the sliders made shows as "Custom": no preset is chosen then.
    m_presets->setPlaceholderText(u"Custom"_qs);
    for (const EqualizerPreset &preset : m_model.presets())
        m_presets->addItem(preset.name);
    m_presets->setMinimumContentsLength(16);
    connect(m_presets, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_model.choosePreset(index);
        refresh();
    });
    top->addWidget(m_presets);
    column->addLayout(top);

    auto *sliders = new QHBoxLayout;
    sliders->setSpacing(2);
    auto *scale = new QVBoxLayout;
    scale->addWidget(centred(u" "_qs));
    scale->addWidget(centred(u"+20 dB"_qs, "muted"));
    scale->addStretch();
    scale->addWidget(centred(u"0 dB"_qs, "muted"));
    scale->addStretch();
    scale->addWidget(centred(u"-20 dB"_qs, "muted"));
    scale->addWidget(centred(u" "_qs));
    sliders->addLayout(scale);
    sliders->addSpacing(4);
    sliders->addWidget(
        sliderColumn(u"Preamp"_qs, m_sliders[0], m_values[0], [this](double dB) { m_model.setPreamp(dB); }));
    sliders->addSpacing(12);
    for (int band = 0; band < kEqualizerBandCount; ++band) {
        sliders->addWidget(sliderColumn(BandLabel(frequencies[size_t(band)]), m_sliders[size_t(band) + 1],
                                        m_values[size_t(band) + 1],
                                        [this, band](double dB) { m_model.setBand(band, dB); }));
    }
    column->addLayout(sliders);
    setForm(form);
    refresh();
    m_presets->setFocus(); // the keys choose a preset at once
}

QWidget *EqualizerDialog::sliderColumn(const QString &name, QSlider *&slider, QLabel *&value,
                                       std::function<void(double)> level)
{
    auto *columnWidget = new QWidget;
    columnWidget->setFixedWidth(name.size() > 4 ? kColumnWidth + 14 : kColumnWidth);
    auto *column = new QVBoxLayout(columnWidget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(3);
    value = centred(QString());
    slider = new QSlider(Qt::Vertical);
    slider->setRange(int(kEqualizerMinDb) * kTenths, int(kEqualizerMaxDb) * kTenths);
    slider->setSingleStep(5);
    slider->setPageStep(30);
    slider->setFixedHeight(kSliderHeight);
    slider->setPalette(palette());
    connect(slider, &QSlider::valueChanged, this, [this, level = std::move(level)](int tenths) {
        level(double(tenths) / kTenths);
        refresh();
    });
    column->addWidget(value);
    column->addWidget(slider, 0, Qt::AlignHCenter);
    column->addWidget(centred(name));
    return columnWidget;
}

void EqualizerDialog::refresh()
{
    const EqualizerSettings &s = m_model.settings();
    const QSignalBlocker quietCheck(m_enabled), quietPresets(m_presets);
    m_enabled->setChecked(s.enabled);
    m_presets->setCurrentIndex(m_model.presetIndex());
    for (size_t i = 0; i < m_sliders.size(); ++i) {
        const double dB = i == 0 ? s.bands.preamp : s.bands.amps[i - 1];
        const QSignalBlocker quiet(m_sliders[i]);
        m_sliders[i]->setValue(int(std::lround(dB * kTenths)));
        m_values[i]->setText(levelText(dB));
    }
}

void EqualizerDialog::regionClicked(int region)
{
    // Closing keeps what the user hears; only Cancel takes it back.
    OkCancelDialog::regionClicked(region == RegionClose ? int(RegionOK) : region);
}

void EqualizerDialog::done(int result)
{
    if (result != Accepted)
        m_model.cancel();
    qCDebug(lcApp) << "equalizer" << (result == Accepted ? "kept" : "taken back");
    OkCancelDialog::done(result);
}

} // namespace quorvel

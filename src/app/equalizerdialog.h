#pragma once
// "Equalizer": the on/off check, the engine's presets, the preamplification
// and the ten bands as vertical sliders, in a skinned dialog of the
// "Options" family. The EqualizerModel holds the state and applies every
// change to the playing item at once; the widgets mirror it. OK and the
// close button keep what was set, Cancel and Escape go back to how it was.

#include "app/okcanceldialog.h"
#include "settings/equalizermodel.h"

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QSlider;

namespace quorvel {

class EqualizerDialog : public OkCancelDialog {
    Q_OBJECT
public:
    // `frequencies`: the bands' centre frequencies in Hz, for their labels.
    EqualizerDialog(const SkinImages &images, EqualizerModel &model,
                    const std::array<double, kEqualizerBandCount> &frequencies, QWidget *parent);

protected:
    void regionClicked(int region) override;
    void done(int result) override;

private:
    // A slider with its value above and its name below; `level` takes the moves.
    QWidget *sliderColumn(const QString &name, QSlider *&slider, QLabel *&value, std::function<void(double)> level);
    void refresh();

    EqualizerModel &m_model;
    QCheckBox *m_enabled = nullptr;
    QComboBox *m_presets = nullptr;
    // The preamplification first, then the bands.
    std::array<QSlider *, kEqualizerBandCount + 1> m_sliders{};
    std::array<QLabel *, kEqualizerBandCount + 1> m_values{};
};

} // namespace quorvel

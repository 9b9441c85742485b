#include "skin/skinneddialog.h"
#include "skintestdata.h"

#include <QCoreApplication>
#include <QImage>
#include <QMouseEvent>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

// Two text buttons under the title bar; the second one disabled.
class TwoButtons : public SkinnedDialog {
public:
    TwoButtons() : SkinnedDialog(test::CommittedSkin(), u"Test"_qs, 4, 1, Bottom::Band, nullptr)
    {
        setRegionEnabled(3, false);
    }
    std::vector<int> clicked;

protected:
    void paintRegions(QPainter &p) override
    {
        drawTextButton(p, 2, QRect(20, 50, 75, 23), u"A"_qs);
        drawTextButton(p, 3, QRect(20, 90, 75, 23), u"B"_qs);
    }
    void regionClicked(int region) override { clicked.push_back(region); }
};

TEST(SkinnedDialog, RegionsLightUpPressAndClickOnlyWhereTheyWerePressed)
{
    TwoButtons d;
    d.resize(200, 160);
    QImage canvas(d.size(), QImage::Format_ARGB32);
    d.render(&canvas); // the paint records the regions
    const QPoint a(30, 60), b(30, 100), close(185, 12), none(150, 130);
    const struct {
        QEvent::Type type;
        QPoint at;
        int stateA;
        std::vector<int> clicked;
    } steps[] = {
        {QEvent::MouseMove, a, StateOver, {}},
        {QEvent::MouseButtonPress, a, StatePressed, {}},
        {QEvent::MouseButtonRelease, close, StatePressed, {}}, // released elsewhere: no click
        {QEvent::MouseMove, none, StateNormal, {}},
        {QEvent::MouseButtonPress, a, StatePressed, {}},
        {QEvent::MouseButtonRelease, a, StatePressed, {2}},
        {QEvent::MouseButtonPress, b, StateNormal, {2}},
        {QEvent::MouseButtonRelease, b, StateNormal, {2}}, // disabled: nothing
        {QEvent::MouseButtonPress, close, StateNormal, {2}},
        {QEvent::MouseButtonRelease, close, StateNormal, {2, 0}},
    };
    for (const auto &s : steps) {
        const Qt::MouseButton button = s.type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const Qt::MouseButtons held = s.type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent e(s.type, s.at, d.mapToGlobal(s.at), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&d, &e);
        EXPECT_EQ(d.regionState(2), s.stateA) << s.type << " at " << s.at.x() << "," << s.at.y();
        EXPECT_EQ(d.regionState(3), StateDisabled);
        EXPECT_EQ(d.clicked, s.clicked);
    }
}

} // namespace

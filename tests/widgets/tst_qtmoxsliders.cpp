#include "qtmoxdoubleslider.h"
#include "qtmoxslider.h"
#include "slidermouse.h"
#include "testmain.h"

#include <QLabel>
#include <QPointer>
#include <QRandomGenerator>

#include <functional>
#include <limits>

namespace {

/** Every signal of a slider, in order, then its position and its value. */
template<class Slider> struct SignalLog
{
    explicit SignalLog(Slider *itsSlider) : slider(itsSlider)
    {
        QObject::connect(slider, &Slider::focusOut, [this] { text += "out "; });
        QObject::connect(slider, &Slider::valueChanged, [this](auto v) { text += '=' + QByteArray::number(v) + ' '; });
        QObject::connect(slider, &Slider::sliderPressed, [this] { text += "press "; });
        QObject::connect(slider, &Slider::sliderMoved, [this](int p) { text += "move" + QByteArray::number(p) + ' '; });
        QObject::connect(slider, &Slider::sliderReleased, [this] { text += "release "; });
        QObject::connect(slider, &Slider::rangeChanged, [this](auto min, auto max) {
            text += '[' + QByteArray::number(min) + ',' + QByteArray::number(max) + "] ";
        });
    }
    QByteArray take()
    {
        return std::exchange(text, {}) + "at " + QByteArray::number(slider->slider()->value()) + " is "
            + QByteArray::number(slider->value());
    }

    Slider *slider;
    QByteArray text;
};

} // namespace

class TestQtMoxSliders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /** What holds on every scale: ends, order, grid, and a way there and back that ends where it began. */
    void integerRules()
    {
        QRandomGenerator random(1);
        QtMoxSlider slider;
        for (int round = 0; round < 300; ++round) {
            const int min = random.bounded(-5000, 5000), max = min + random.bounded(1, round % 2 ? 50 : 20000);
            const int step = random.bounded(1, 60);
            slider.setScaleType(QtMoxSlider::ScaleType(round % 3));
            slider.setSingleStep(step);
            slider.setLog10Coef(random.bounded(5000) / 16.0 + 1);
            slider.setValidate(random.bounded(2));
            slider.setRange(min, max);
            const int low = slider.minimum(), high = slider.maximum();
            int previous = min;
            for (int position = low; position <= high; ++position) {
                slider.slider()->setValue(position);
                const int value = slider.value();
                QVERIFY(position != low || value == min);
                QVERIFY(position != high || value == max);
                QVERIFY(previous <= value && value <= max);
                QVERIFY(!slider.validate() || value == max || (value - min) % step == 0);
                slider.setValue(value);
                QVERIFY(qAbs(slider.value() - value) <= (slider.validate() ? step : 0));
                previous = value;
            }
        }
        // One position more where the rounded root or logarithm falls short of the maximum.
        slider.setScaleType(QtMoxSlider::SqrtScale);
        slider.setRange(0, 6);
        QCOMPARE(slider.maximum(), 3);
        slider.setScaleType(QtMoxSlider::Log10Scale);
        slider.setLog10Coef(16);
        slider.setRange(0, 1030);
        QCOMPARE(slider.maximum(), 49);
    }

    // Whatever the numbers are, nothing undefined is done with them and the bounds stay bounds.
    void senselessNumbers()
    {
        constexpr int lowest = std::numeric_limits<int>::min(), highest = std::numeric_limits<int>::max();
        constexpr double huge = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();
        constexpr double numbers[] = {0, nan, huge, -huge, -1, 1e-300, 1e300, 100};
        for (int i = 0; i < 3 * 8 * 8; ++i) {
            QtMoxSlider slider;
            QtMoxDoubleSlider doubleSlider;
            slider.setScaleType(QtMoxSlider::ScaleType(i % 3));
            slider.setLog10Coef(numbers[i / 3 % 8]);
            slider.setSingleStep(i % 8 - 1);
            slider.setValidate(true);
            doubleSlider.setValidate(i % 3);
            doubleSlider.setSingleStep(numbers[i / 3 % 8]);
            doubleSlider.setRange(0, numbers[i / 24]);
            for (auto range : {qMakePair(0, 0), qMakePair(highest, lowest), qMakePair(lowest, highest)}) {
                slider.setRange(range.first, range.second);
                for (int v : {-5, 0, lowest, highest}) {
                    slider.setValue(v);
                    QTest::keyClick(slider.slider(), v ? Qt::Key_Up : Qt::Key_Down);
                    doubleSlider.setValue(numbers[v & 7]);
                    QVERIFY(slider.value() <= qMax(range.first, range.second) && doubleSlider.slider()->maximum() >= 0);
                }
            }
        }
    }

    void integerSteps()
    {
        QtMoxSlider slider(Qt::Horizontal);
        slider.resize(700, 60);
        slider.show();
        SignalLog<QtMoxSlider> log(&slider);
        QSlider *const inner = slider.slider();
        const auto key = [&](Qt::Key code) { QTest::keyClick(inner, code); };
        const std::pair<std::function<void()>, const char *> steps[] = {
            {[&] { slider.setRange(0, 100); }, "at 0 is 0"},
            {[&] { slider.setSingleStep(10), slider.setValidate(true), MoxTest::drag(inner, 37); },
             "press move37 =37 at 37 is 40"},
            {[&] { MoxTest::release(inner), slider.setSingleStep(10); }, "release at 40 is 40"},
            {[&] { slider.setTracking(false), MoxTest::drag(inner, 60); }, "press move60 at 40 is 40"},
            {[&] { MoxTest::release(inner); }, "release =60 at 60 is 60"},
            {[&] { QTest::mouseClick(inner, Qt::LeftButton, {}, MoxTest::handle(inner, 10)); }, "=50 at 50 is 50"},
            {[&] { slider.setValidate(false), slider.setRange(0, 10); }, "=10 [0,10] at 10 is 10"},
            {[&] { slider.setMinimum(-5), slider.setMaximum(1000); }, "[-5,10] [-5,1000] at 10 is 10"},
            {[&] { slider.setRange(0, 1000), slider.setValue(200); }, "[0,1000] =200 at 200 is 200"},
            {[&] { slider.setScaleType(QtMoxSlider::Log10Scale); }, "=199 at 232 is 199"},
            {[&] { key(Qt::Key_Up); }, "=253 at 242 is 253"}, // the step of the linear scale, in positions
            {[&] { slider.setSingleStep(1), slider.setValue(500); }, "=503 at 271 is 503"},
            {[&] { slider.setValue(1000), slider.setValue(-1); }, "=1000 =0 at 100 is 0"},
            {[&] { key(Qt::Key_Up); }, "=1 at 104 is 1"}, // flat there: one step in value units
            {[&] { key(Qt::Key_Left); }, "=0 at 100 is 0"},
            {[&] { inner->setValue(101); }, "at 101 is 0"},
            {[&] { inner->setValue(271), key(Qt::Key_Right); }, "=503 =515 at 272 is 515"},
            {[&] { inner->setValue(100), inner->setValue(101); }, "=0 =1 at 104 is 1"}, // the last key still counts
            {[&] { slider.setSingleStep(5), key(Qt::Key_PageDown); }, "=0 at 100 is 0"},
            {[&] { inner->setValue(101); }, "=-5 at 100 is 0"}, // outside the range, and not brought back
            {[&] { key(Qt::Key_A), inner->setValue(101); }, "=0 at 101 is 0"},
            {[&] { slider.setMaximum(5000); },
             "[100,5000] =100 at 100 is 100"}, // the lower position becomes the minimum
            {[&] { slider.setScaleType(QtMoxSlider::SqrtScale), slider.setRange(0, 1000), slider.setValue(500); },
             "=5000 =1000 [0,1000] =484 at 22 is 484"},
            {[&] { slider.setScaleType(QtMoxSlider::LinearScale), slider.setValue(500); }, "=500 at 500 is 500"},
            {[&] { slider.setScaleType(QtMoxSlider::Log10Scale); }, "=1000 at 300 is 1000"}, // clamped first
        };
        for (const auto &step : steps) {
            step.first();
            QCOMPARE(log.take(), step.second);
        }
    }

    void doubleSteps()
    {
        QtMoxDoubleSlider slider;
        SignalLog<QtMoxDoubleSlider> log(&slider);
        const auto labels = [&] { return slider.minLabel()->text() + QLatin1Char(' ') + slider.maxLabel()->text(); };
        slider.setDecimals(1);
        slider.setValue(50);
        slider.setRange(0, 100);
        QCOMPARE(labels(), QStringLiteral("0.000 100.000"));
        slider.setRange(0, 1);
        QCOMPARE(labels(), QStringLiteral("0.0 1.0"));
        QCOMPARE(log.take(), "=50 =1 [0,1] at 1 is 1");
        slider.setSingleStep(0.1);
        slider.setValue(0.55);
        QCOMPARE(log.take(), "=1 =0.6 at 6 is 0.6");
        slider.setSingleStep(0.4); // the last whole step falls behind the maximum: no tick of its own
        slider.slider()->setValue(3);
        QCOMPARE(log.take(), "=1 =0.8 =1 at 3 is 1");
        slider.setSingleStep(0.3); // it falls short: one tick more, of less than a step
        slider.slider()->setValue(3);
        QCOMPARE(log.take(), "=1 =0.9 at 3 is 0.9");
        slider.setValue(1);
        slider.setValidate(true);
        slider.setValue(0.74);
        QCOMPARE(log.take(), "=1 =0.6 at 2 is 0.6");
        slider.setValidate(false);
        slider.setSingleStep(0.1);
        slider.setMaximum(0.3); // the other bound is the field
        slider.setMinimum(-1);
        QTest::keyClick(slider.slider(), Qt::Key_Down);
        QCOMPARE(log.take(), "=0.6 =0.3 [0,0.3] [-1,0.3] =0.3 =0.2 at 12 is 0.2");
        QFocusEvent focusOut(QEvent::FocusOut);
        QVERIFY(!slider.eventFilter(slider.maxLabel(), &focusOut) && slider.eventFilter(slider.slider(), &focusOut));
        QCOMPARE(log.take(), "out at 12 is 0.2");
    }

    void deathInSlot()
    {
        const std::function<void(QtMoxSlider *)> actions[] = {
            [](QtMoxSlider *s) { s->setValue(50); }, [](QtMoxSlider *s) { s->setRange(10, 20); },
            [](QtMoxSlider *s) { s->setScaleType(QtMoxSlider::Log10Scale), QTest::keyClick(s->slider(), Qt::Key_Up); }};
        for (const auto &action : actions) {
            QPointer<QtMoxSlider> slider = new QtMoxSlider;
            connect(slider.data(), &QtMoxSlider::valueChanged, [&] { delete slider; });
            action(slider);
            QVERIFY(!slider);
        }
    }
};

MOX_TEST_MAIN(TestQtMoxSliders)
#include "tst_qtmoxsliders.moc"

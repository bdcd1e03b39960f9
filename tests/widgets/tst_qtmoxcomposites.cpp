#include "qtmoxdoubleslider.h"
#include "qtmoxdoublespinboxval.h"
#include "qtmoxgainslider.h"
#include "qtmoxslider.h"
#include "qtmoxsliderspinbox.h"
#include "qtmoxspinbox.h"
#include "qtmoxspinboxval.h"
#include "qtmoxspinboxval64.h"
#include "slidermouse.h"
#include "testmain.h"

#include <QLabel>
#include <QPointer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

namespace {

/** A control in a window, its slider on show, with all outer signals in order: =value, 'text', [range]. */
template<class Control> struct Fixture
{
    Fixture()
    {
        using Value = decltype(control->value());
        (new QVBoxLayout(&window))->addWidget(control);
        QObject::connect(control, QOverload<Value>::of(&Control::valueChanged), [this](Value value) {
            log += " =" + QByteArray::number(value);
            if (deadly)
                delete control;
        });
        QObject::connect(control, QOverload<const QString &>::of(&Control::valueChanged),
                         [this](const QString &text) { log += " '" + text.toUtf8() + '\''; });
        QObject::connect(control, &Control::rangeChanged, [this](Value min, Value max) {
            log += " [" + QByteArray::number(min) + ',' + QByteArray::number(max) + ']';
        });
        window.resize(900, 150);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        if constexpr (popUp) {
            control->resizeSlider(QSize(60, 400)); // a pixel or more for every position
            control->toolButton()->click();
        }
    }
    QByteArray take() { return std::exchange(log, QByteArray()).trimmed(); }
    QByteArray text() const { return control->spinBox()->text().toUtf8(); }

    static constexpr bool popUp = std::is_same_v<Control, QtMoxSpinBox>;
    QWidget window;
    QPointer<Control> control = new Control(&window);
    QSlider *const slider = control->slider()->slider();
    QByteArray log;
    bool deadly = false;
};

} // namespace

class TestQtMoxComposites : public QObject
{
    Q_OBJECT

    /** The 64-bit spin box reports the number before the text, Qt's spin boxes after it. */
    template<class Control> static void signalsInOrder(const QByteArray &fraction)
    {
        Fixture<Control> f;
        const auto reported = [&](const QByteArray &v) {
            const QByteArray number = '=' + v, text = '\'' + v + fraction + " px'";
            return f.popUp ? number + ' ' + text : text + ' ' + number;
        };
        f.control->spinBox()->setSuffix(QStringLiteral(" px"));
        f.take();
        f.control->setValue(10);
        f.control->setValue(10);
        f.control->setRange(0, 100);
        QCOMPARE(f.take(), reported("10"));
        for (int position : {20, 49, 50}) {
            MoxTest::drag(f.slider, position);
            QCOMPARE(f.take() + f.text(), QByteArray::number(position) + fraction + " px");
        }
        MoxTest::release(f.slider);
        QCOMPARE(f.take(), "=50 '50'"); // plain
        QTest::mouseClick(f.slider, Qt::LeftButton, Qt::NoModifier, MoxTest::handle(f.slider, 90));
        QCOMPARE(f.take(), reported("60"));
        MoxTest::wheelUp(f.slider);
        QCOMPARE(f.take(), reported("63"));
        QTest::keyClick(f.slider, Qt::Key_Down);
        QCOMPARE(f.take(), reported("62"));
        f.control->setRange(0, 10); // the slider clamps while the spin box still has the old range
        QCOMPARE(f.take(), reported("10") + " [0,10]");
        f.control->setMinimum(5);
        f.control->setMaximum(20);
        QCOMPARE(f.take(), "[5,10] [5,20]");
        QVERIFY(f.control->spinBox()->minimum() == 5 && f.control->spinBox()->maximum() == 20);
        f.control->setValidate(true);
        f.control->setSingleStep(5);
        QVERIFY(f.control->validate() && f.control->singleStep() == 5 && f.control->slider()->singleStep() == 5);
        f.take(); // the double slider has more to say: its tick was clamped and put back
        f.control->setValue(13);
        QCOMPARE(f.take(), reported("15"));
        MoxTest::drag(f.slider, f.slider->maximum());
        f.slider->clearFocus(); // as a message box does that opens meanwhile: no release will come
        QCOMPARE(f.take(), "=20 '20'");
        f.control->setValue(10);
        QCOMPARE(f.take(), reported("10"));
    }

    template<class Control> static void dies()
    {
        {
            Fixture<Control> f; // while the mouse holds the handle, with the pop-up open
            QWidget *const window = f.slider->window();
            QTest::mousePress(window->windowHandle(), Qt::LeftButton, {},
                              f.slider->mapTo(window, MoxTest::handle(f.slider, 0)));
            QVERIFY(f.slider->isSliderDown());
            delete f.control;
            QTest::mouseRelease(f.window.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
            QCOMPARE(f.take(), "");
        }
        {
            Fixture<Control> f; // while a text waits that the loss of the focus commits
            f.control->setValidateTyping(false);
            f.control->slider()->setVisible(!f.popUp);
            f.control->spinBox()->setFocus();
            QTRY_VERIFY(f.control->spinBox()->hasFocus());
            QTest::keyClicks(f.control->spinBox(), QStringLiteral("5"));
            if constexpr (f.popUp)
                f.control->spinBox()->setIgnoreFocusOut(false);
            delete f.control;
            QCOMPARE(f.take(), "");
        }
        Fixture<Control> f; // in a slot
        Q_EMIT f.control->slider()->sliderPressed();
        f.slider->setValue(7);
        f.deadly = true;
        Q_EMIT f.control->slider()->sliderReleased();
        QCOMPARE(f.take(), "=7");
        QVERIFY(!f.control);
    }

private Q_SLOTS:
    void integerInPopUp() { signalsInOrder<QtMoxSpinBox>(""), dies<QtMoxSpinBox>(); }
    void integer() { signalsInOrder<QtMoxSliderSpinBox>(""), dies<QtMoxSliderSpinBox>(); }
    void gain() { signalsInOrder<QtMoxGainSlider>(".000"), dies<QtMoxGainSlider>(); }

    void labels()
    {
        Fixture<QtMoxSliderSpinBox> f;
        QVERIFY(!f.control->leftLabel() && f.control->topLabelText().isEmpty());
        f.control->setLeftLabelText(QString());
        QVERIFY(f.control->leftLabel()->isHidden());
        f.control->setLeftLabelText(QStringLiteral("left"));
        f.control->setTopLabelText(QStringLiteral("top"));
        f.control->layout()->activate();
        const QRect left = f.control->leftLabel()->geometry(), top = f.control->topLabel()->geometry();
        QVERIFY(f.control->leftLabel()->isVisible() && f.control->topLabel()->isVisible() && top.top() > 20);
        QVERIFY(left.right() + 7 == f.control->slider()->x() && top.bottom() < f.control->slider()->y());
    }

    // The slider answers with what its position stands for, before the control has reported what was set.
    void echoes()
    {
        Fixture<QtMoxGainSlider> gain;
        gain.control->setValue(0.55); // between two ticks: rounded, in spite of the guard
        gain.control->setValue(1.25); // the tick does not move
        QCOMPARE(gain.take(), "'0.550' '1.000' =1 =0.55 '1.250' =1.25");
        gain.control->setRange(0, 1);
        gain.control->setSingleStep(0.1);
        gain.take();
        MoxTest::drag(gain.slider, 3);
        MoxTest::release(gain.slider); // at 0.30000000000000004, which is more than the spin box holds
        QCOMPARE(gain.take(), "=0.3 '0.3'");
        Fixture<QtMoxSpinBox> integer;
        integer.control->slider()->setScaleType(QtMoxSlider::Log10Scale);
        integer.control->setRange(0, 1000);
        integer.take();
        integer.control->setValue(500);
        QCOMPARE(integer.take(), "=503 '503' =500 '500'");
        integer.control->spinBox()->setMaximum(Q_INT64_C(0x100000007));
        integer.control->spinBox()->setValue(Q_INT64_C(0x100000007));
        QVERIFY(integer.take().endsWith("=7 '4294967303'")); // cut to 32 bits
    }

    void popUp()
    {
        Fixture<QtMoxSpinBox> f;
        QtMoxSlider *const slider = f.control->slider();
        QToolButton *const button = f.control->toolButton();
        const QPoint corner = button->mapToGlobal(QPoint(0, 0));
        QCOMPARE(button->text(), QStringLiteral("^"));
        QCOMPARE(slider->pos(), corner - QPoint(0, slider->height()));
        QCOMPARE(QApplication::focusWidget(), f.slider);
        QTest::keyClick(f.slider, Qt::Key_Escape);
        QVERIFY(!slider->isVisible());
        QTest::keyClick(button, Qt::Key_Space);
        QVERIFY(slider->isVisible());
        button->setFocus();
        QVERIFY(!slider->isVisible());
        button->click();
        MoxTest::drag(f.slider, 7);
        QTest::keyClick(f.slider, Qt::Key_Escape); // ends the drag too: the control must not stay silent
        QCOMPARE(f.take(), "=7 '7'");
        f.control->setValue(0);
        QCOMPARE(f.take(), "=0 '0'");
        f.control->setSliderOrientation(Qt::Horizontal);
        QCOMPARE(button->text(), QStringLiteral(">"));
        button->click();
        QCOMPARE(slider->pos(), corner + QPoint(button->width(), 0));
        f.control->setReadOnly(true);
        QVERIFY(f.control->isReadOnly() && !f.control->isSliderButtonVisible());
        f.control->setReadOnly(false);
        QVERIFY(f.control->isSliderButtonVisible());
        QTest::keyPress(f.control->spinBox(), Qt::Key_Up);
        QCOMPARE(f.take() + f.text(), "1");
        QTest::keyRelease(f.control->spinBox(), Qt::Key_Up);
        QCOMPARE(f.take(), "=1 '1'");
        QtMoxSpinBox fresh; // its pop-up needs more room than that, and takes it before it is placed
        fresh.resizeSlider(1, 1);
        fresh.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fresh));
        fresh.toolButton()->click();
        QCOMPARE(fresh.slider()->geometry().bottom() + 1, fresh.toolButton()->mapToGlobal(QPoint(0, 0)).y());
    }

    void tabOrder()
    {
        Fixture<QtMoxSliderSpinBox> f;
        auto *const second = new QtMoxSpinBox;
        f.window.layout()->addWidget(second);
        second->show();
        QWidget::setTabOrder(second, f.control); // each moves as a whole
        second->setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), second->spinBox());
        for (QWidget *next :
             {static_cast<QWidget *>(second->toolButton()), static_cast<QWidget *>(f.slider),
              static_cast<QWidget *>(f.control->spinBox()), static_cast<QWidget *>(second->spinBox())}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), next);
        }
    }
};

MOX_TEST_MAIN(TestQtMoxComposites)
#include "tst_qtmoxcomposites.moc"

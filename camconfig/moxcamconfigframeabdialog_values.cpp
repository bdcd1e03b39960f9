// The values of frames A and B that the camera counts in other units than the dialog shows.
#include "cutsignals.h"
#include "moxcamconfigframeabdialog_p.h"

#include "qtmoxgainslider.h"
#include "qtmoxsliderspinbox.h"
#include "qtmoxspinbox.h"
#include "saturate.h"
#include "stepgrid.h"

#include "ui_moxcamconfigframeabdialog.h"

#include <QPointer>

namespace MoxGui {

namespace {

constexpr qint64 defaultPixelClock = 160;

/** In 64 bits, before anything becomes a floating-point number. */
double product(qint64 a, qint64 b)
{
    return double(StepGrid::wrappingMultiply(a, b));
}

/** The doublings wrap at 32 bits, where the last one gives the sign. */
double gainOf(qint64 coarse, qint64 fine)
{
    return (double(fine) * 0.015625 + 1.0) * double(1 << (coarse & 31));
}

} // namespace

void MoxCamConfigFrameABDialogPrivate::subscribe(MoxGenParam::Param *param)
{
    // Ended first, so that there is one subscription however often a device is taken up.
    param->UnregisterEventSink(this);
    param->RegisterEventSink(this);
}

void MoxCamConfigFrameABDialogPrivate::readExposure(MoxGenParam::Int *param, qint64 *value, qint64 *maximum)
{
    *value = param->GetValue(nullptr);
    *maximum = param->GetMax(nullptr);
}

/** What the camera lacks stays as it is from the camera before. */
void MoxCamConfigFrameABDialogPrivate::getNeededParams()
{
    if (MoxGenParam::Int *param = params->GetInt("PixelClock", nullptr)) {
        MoxCamErr err = MoxCamError::Success;
        pixelClock = param->GetValue(&err);
        if (err != MoxCamError::Success)
            pixelClock = defaultPixelClock;
    }
    if (MoxGenParam::Int *param = params->GetInt("Frame_ExposureLines", nullptr)) {
        readExposure(param, &exposureLines, &exposureLinesMax);
        subscribe(param);
    }
    if (MoxGenParam::Int *param = params->GetInt("Frame_ExposureClocks", nullptr)) {
        readExposure(param, &exposureClocks, &exposureClocksMax);
        subscribe(param);
    }
    if (MoxGenParam::Int *param = params->GetInt("Frame_LineTime", nullptr)) {
        lineTime = param->GetValue(nullptr);
        subscribe(param);
    }
    if (MoxGenParam::Int *param = params->GetInt("Frame_FixedFramePeriodValue", nullptr))
        subscribe(param);
    if (MoxGenParam::Enum *param = params->GetEnum("TriggerMode", nullptr)) {
        triggerActive = param->GetValue(nullptr) > 0;
        subscribe(param);
    }
}

void MoxCamConfigFrameABDialogPrivate::OnParameterUpdate(MoxGenParam::Param *param)
{
    if (!params)
        return;
    const QPointer<QObject> same(bound.get());
    const QLatin1String name(param->GetName());
    const int type = param->IsReadable() ? param->GetType() : int(MoxGenParam::TypeOther);
    auto *integer = type == MoxGenParam::TypeInteger ? dynamic_cast<MoxGenParam::Int *>(param) : nullptr;
    auto *enumeration = type == MoxGenParam::TypeEnum ? dynamic_cast<MoxGenParam::Enum *>(param) : nullptr;
    if (integer && name == QLatin1String("Frame_LineTime")) {
        lineTime = integer->GetValue(nullptr);
        updateFixedFramePeriod();
    } else if (integer && name == QLatin1String("Frame_ExposureLines")) {
        readExposure(integer, &exposureLines, &exposureLinesMax);
    } else if (integer && name == QLatin1String("Frame_ExposureClocks")) {
        readExposure(integer, &exposureClocks, &exposureClocksMax);
    } else if (integer && name == QLatin1String("Frame_DigitalCourseGain")) {
        coarseGain = integer->GetValue(nullptr);
        showDigitalGain();
    } else if (integer && name == QLatin1String("Frame_DigitalFineGain")) {
        fineGain = integer->GetValue(nullptr);
        showDigitalGain();
    } else if (enumeration && name == QLatin1String("TriggerMode")) {
        triggerActive = enumeration->GetValue(nullptr) > 0;
    }
    // At every update, also of what cannot be read.
    if (same)
        updateExposureTime();
}

long MoxCamConfigFrameABDialogPrivate::ToControl(long value, MoxGenParam::Int *)
{
    return pixelClock == 0 ? 0 : Saturate::truncated(product(value, lineTime) / double(pixelClock) + 0.5);
}

long MoxCamConfigFrameABDialogPrivate::ToDevice(long value, MoxGenParam::Int *)
{
    return lineTime == 0 ? 0 : Saturate::truncated(product(value, pixelClock) / double(lineTime) + 0.5);
}

/** When what a line lasts, or whether the period is in force, has changed. */
void MoxCamConfigFrameABDialogPrivate::updateFixedFramePeriod()
{
    if (ui->spBoxFixedFramePeriodValue->isEnabled())
        mapper.updateSliderSpinBox(params->GetInt("Frame_FixedFramePeriodValue", nullptr),
                                   ui->spBoxFixedFramePeriodValue, this);
}

void MoxCamConfigFrameABDialogPrivate::updateExposureTime()
{
    QtMoxSliderSpinBox *const control = ui->spBoxExpTime;
    if (!control->isEnabled())
        return;
    const auto microseconds = [this](qint64 lines, qint64 clocks) {
        if (pixelClock == 0)
            return 0;
        return Saturate::toInt(Saturate::truncated((product(lineTime, lines) + double(clocks)) / double(pixelClock)));
    };
    const int time = microseconds(exposureLines, exposureClocks);
    const int longest = ui->chBoxFixedFramePeriodEnable->isChecked()
        ? ui->spBoxFixedFramePeriodValue->value()
        : microseconds(exposureLinesMax, exposureClocksMax);

    // Still connected: a time that no longer fits is written to the camera as the longest one that does.
    const QPointer<QObject> same(bound.get());
    control->setRange(0, longest);
    if (!same)
        return;
    // Not connected: the time is rounded, and written back it would take clocks from the exposure.
    cutSignals(control);
    control->setValue(time);
    control->setValue(time); // the slider's scale has rounded it; now the slider stands still
    connectExposureTime();
}

void MoxCamConfigFrameABDialogPrivate::connectExposureTime()
{
    QObject::connect(
        ui->spBoxExpTime, QOverload<int>::of(&QtMoxSliderSpinBox::valueChanged), bound.get(),
        [this](int microseconds) { setExposureTime(microseconds); }, Qt::DirectConnection);
}

/** Writes through the controls of lines and clocks. */
void MoxCamConfigFrameABDialogPrivate::setExposureTime(int microseconds)
{
    // Lines that last no time make no exposure time.
    if (lineTime <= 0)
        return;
    const qint64 clocks = StepGrid::wrappingMultiply<qint64>(microseconds, pixelClock);
    // Both at once: the first write raises an update that shows the time again.
    exposureLines = clocks / lineTime;
    exposureClocks = clocks % lineTime;
    const qint64 clocksLeft = exposureClocks;
    const QPointer<QObject> same(bound.get());
    ui->spBoxExpLines->setValue(int(exposureLines));
    if (same)
        ui->spBoxExpClocks->setValue(int(clocksLeft));
}

void MoxCamConfigFrameABDialogPrivate::initDigitalGain()
{
    MoxGenParam::Int *const coarse = params->GetInt("Frame_DigitalCourseGain", nullptr);
    MoxGenParam::Int *const fine = params->GetInt("Frame_DigitalFineGain", nullptr);
    qint64 coarseMin = 0, coarseMax = 0, fineMin = 0, fineMax = 0;
    if (coarse) {
        coarseGain = coarse->GetValue(nullptr);
        coarseMin = coarse->GetMin(nullptr);
        coarseMax = coarse->GetMax(nullptr);
        subscribe(coarse);
    }
    if (fine) {
        fineGain = fine->GetValue(nullptr);
        fineMin = fine->GetMin(nullptr);
        fineMax = fine->GetMax(nullptr);
        subscribe(fine);
    }
    QtMoxGainSlider *const control = ui->spBoxDigitalGain;
    control->setValidate(true);
    control->setValidateTyping(false);
    control->setRange(gainOf(coarseMin, fineMin), gainOf(coarseMax, fineMax));
    control->setSingleStep(0.125);
    showDigitalGain();
    QObject::connect(control, QOverload<double>::of(&QtMoxGainSlider::valueChanged), bound.get(),
                     [=](double gain) { setDigitalGain(gain, coarse, fine); });
}

/**
 * In steps of 1/8: what the camera has between two of them is written back rounded once it changes. When another frame
 * is chosen its two parts arrive one by one, so that its coarse part is written back with the other frame's fine part.
 */
void MoxCamConfigFrameABDialogPrivate::showDigitalGain()
{
    ui->spBoxDigitalGain->setValue(gainOf(coarseGain, fineGain));
}

/** Either parameter may be null. Whether they can be written is not asked, and a refusal is not told. */
void MoxCamConfigFrameABDialogPrivate::setDigitalGain(double gain, MoxGenParam::Int *coarse, MoxGenParam::Int *fine)
{
    int shift = 0;
    for (int whole = Saturate::toInt(Saturate::truncated(gain)); whole > 1; whole >>= 1)
        ++shift;
    const double base = double(1 << shift);
    // Both at once: the first write raises an update that shows the gain of the two.
    coarseGain = shift;
    fineGain = Saturate::truncated((gain - base) / base * 64.0);
    const QPointer<QObject> same(bound.get());
    if (coarse)
        coarse->SetValue(coarseGain);
    if (fine && same)
        fine->SetValue(fineGain);
}

} // namespace MoxGui

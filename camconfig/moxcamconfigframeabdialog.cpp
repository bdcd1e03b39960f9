#include "moxcamconfigframeabdialog.h"

#include "cutsignals.h"
#include "deviceparams.h"
#include "diagram.h"
#include "moxcamconfigframeabdialog_p.h"
#include "popupsize.h"
#include "qtmoxslider.h"

#include "ui_moxcamconfigframeabdialog.h"

#include <QButtonGroup>
#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <initializer_list>

namespace MoxGui {

namespace {

constexpr char formContext[] = "MoxCamConfigFrameABDialog"; // of translations

QButtonGroup *makeGroup(QObject *parent, std::initializer_list<QAbstractButton *> buttons)
{
    auto *group = new QButtonGroup(parent);
    for (QAbstractButton *button : buttons)
        group->addButton(button);
    return group;
}

/** So that what stands below each other begins at the same place. */
void makeEquallyWide(std::initializer_list<QWidget *> labels)
{
    int width = 0;
    for (const QWidget *label : labels)
        width = std::max(width, label->sizeHint().width());
    for (QWidget *label : labels)
        label->setMinimumWidth(width);
}

} // namespace

MoxCamConfigFrameABDialogPrivate::MoxCamConfigFrameABDialogPrivate()
    : ui(std::make_unique<Ui_MoxCamConfigFrameABDialog>())
{ }

MoxCamConfigFrameABDialogPrivate::~MoxCamConfigFrameABDialogPrivate() = default;

bool MoxCamConfigFrameABDialogPrivate::init(MoxCamConfigFrameABDialog *dialog, MoxCam::Device *newDevice)
{
    if (!q) {
        q = dialog;
        buildDialog();
    }
    mapper.clearMappings();
    bound = std::make_unique<QObject>();
    cutSignals(ui->spBoxDigitalGain);
    cutSignals(ui->spBoxExpTime);
    params = paramsOf(newDevice);
    q->setEnabled(params);
    if (!params) {
        forgetSize();
        return false;
    }

    getNeededParams();
    // Each binding takes all connections from its control, so the dialog's own come after it.
    initComboBoxes();
    initSpinBoxes();
    initRadioButtons();
    initSliders();
    initTabWidget();
    initCheckBoxes();
    initLineEdit();
    initDigitalGain();

    // Disabled stands for not bound yet.
    for (QWidget *control : std::initializer_list<QWidget *>{ui->spBoxDualVideo, ui->spBoxFrameLineTime,
                                                             ui->spBoxNumberOfFrameAs, ui->spBoxNumberOfFrameBs})
        control->setEnabled(false);
    const QPointer<QObject> same(bound.get());
    onFrameModeChanged(ui->cmBoxFrameMode->currentText());
    if (!same)
        return false;
    moveLayout(ui->tabFrames->currentIndex());
    updateExposureTime();
    return same;
}

void MoxCamConfigFrameABDialogPrivate::buildDialog()
{
    ui->setupUi(q);
    q->layout()->setSizeConstraint(QLayout::SetFixedSize);
    setLeftLabels();
    ui->lblWdrImage->setPixmap(diagram(QStringLiteral(":/images/wdr.bmp")));
    ui->lineEditFrameCurrentSize->setReadOnly(true);
    shutterGroup = makeGroup(q, {ui->radioBtnRollingShutter, ui->radioBtnGlobalShutter});
    adcGroup = makeGroup(q, {ui->radioBtnAdcSelector10b, ui->radioBtnAdcSelector12b});
    exposureControlGroup = makeGroup(q, {ui->radioBtnExpOff, ui->radioBtnExpTrigger, ui->radioBtnExpInternal});
    aoiGroup = makeGroup(q, {ui->radioBtnFullFrame, ui->radioBtnQFHDFrame, ui->radioBtnCustomFrame});
    subsamplingGroup =
        makeGroup(q, {ui->radioBtnSubsampleOff, ui->radioBtnSubsampleSubsampling, ui->radioBtnSubsampleAverage});
    analogGainGroup =
        makeGroup(q, {ui->radioBtnAGain1x, ui->radioBtnAGain2x, ui->radioBtnAGain4x, ui->radioBtnAGain8x});
    expCompanions.append(ui->spBoxExpTime);
    // No parameter stands behind these.
    const QList<QAbstractButton *> aoiButtons = aoiGroup->buttons();
    for (QAbstractButton *button : aoiButtons)
        button->hide();
}

void MoxCamConfigFrameABDialogPrivate::setLeftLabels()
{
    const struct
    {
        LabelledRow *control;
        const char *text;
    } labels[] = {
        {ui->spBoxDualVideo, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "Dual Video\nLine Time [pclk]:")},
        {ui->spBoxExpLines, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "Lines")},
        {ui->spBoxExpClocks, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "Clocks")},
        {ui->spBoxFrameLineTime, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "Line Time [pclk]:")},
        {ui->spBoxFrameOffsetX, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "OffsetX:")},
        {ui->spBoxFrameOffsetY, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "OffsetY:")},
        {ui->spBoxFrameWidth, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "Width: ")},
        {ui->spBoxFrameHeight, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "Height:")},
        {ui->spBoxDigitalGain, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "Digital Gain:")},
        {ui->spBoxBlackLevel, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "Black Level:")},
        {ui->spBoxWdrE1, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "E1:")},
        {ui->spBoxWdrE2, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "E2:")},
        {ui->spBoxWdrE3, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "E3:")},
    };
    for (const auto &label : labels)
        label.control->setLeftLabelText(QCoreApplication::translate(formContext, label.text));

    const QString unit = QStringLiteral("%1s").arg(QChar(0x03BC));
    const QString bracketed = QStringLiteral("[%1]:").arg(unit);
    ui->spBoxExpTime->setLeftLabelText(
        QCoreApplication::translate(formContext, QT_TRANSLATE_NOOP("MoxCamConfigFrameABDialog", "Exposure Time "))
        + bracketed);
    ui->spBoxFixedFramePeriodValue->setLeftLabelText(bracketed);
    for (QLabel *label : {ui->lblWdrE1MicroSec, ui->lblWdrE2MicroSec, ui->lblWdrE3MicroSec})
        label->setText(unit);

    makeEquallyWide({ui->spBoxFrameOffsetX->leftLabel(), ui->spBoxFrameOffsetY->leftLabel()});
    makeEquallyWide({ui->spBoxFrameWidth->leftLabel(), ui->spBoxFrameHeight->leftLabel()});
    makeEquallyWide({ui->lblAnalogGain, ui->spBoxDigitalGain->leftLabel(), ui->spBoxBlackLevel->leftLabel()});
}

void MoxCamConfigFrameABDialogPrivate::initComboBoxes()
{
    mapper.mapEnumParam(params->GetEnum("FrameMode", nullptr), ui->cmBoxFrameMode);
    QObject::connect(ui->cmBoxFrameMode, &QComboBox::currentTextChanged, bound.get(),
                     [this](const QString &text) { onFrameModeChanged(text); });
    mapper.mapEnumParam(params->GetEnum("Frame_SubsamplingM", nullptr), ui->cmBoxSubsamplingM);
    mapper.mapEnumParam(params->GetEnum("Frame_SubsamplingP", nullptr), ui->cmBoxSubsamplingP);
    mapper.mapEnumParam(params->GetEnum("Frame_Averaging", nullptr), ui->cmBoxAveraging);
    mapper.mapEnumParam(params->GetEnum("Frame_WdrP1", nullptr), ui->cmBoxWdrP1);
    mapper.mapEnumParam(params->GetEnum("Frame_WdrP2", nullptr), ui->cmBoxWdrP2);
    mapper.mapEnumParam(params->GetEnum("Frame_WdrP3", nullptr), ui->cmBoxWdrP3);
}

void MoxCamConfigFrameABDialogPrivate::initSpinBoxes()
{
    mapper.mapIntParam(params->GetInt("Frame_ExposureLines", nullptr), ui->spBoxExpLines, expCompanions);
    mapper.mapIntParam(params->GetInt("Frame_ExposureClocks", nullptr), ui->spBoxExpClocks, expCompanions);
    mapper.mapIntParam(params->GetInt("Frame_OffsetX", nullptr), ui->spBoxFrameOffsetX);
    mapper.mapIntParam(params->GetInt("Frame_OffsetY", nullptr), ui->spBoxFrameOffsetY);
    mapper.mapIntParam(params->GetInt("Frame_Width", nullptr), ui->spBoxFrameWidth);
    mapper.mapIntParam(params->GetInt("Frame_Height", nullptr), ui->spBoxFrameHeight);
    mapper.mapIntParam(params->GetInt("Frame_WdrE1", nullptr), ui->spBoxWdrE1);
    mapper.mapIntParam(params->GetInt("Frame_WdrE2", nullptr), ui->spBoxWdrE2);
    mapper.mapIntParam(params->GetInt("Frame_WdrE3", nullptr), ui->spBoxWdrE3);
}

void MoxCamConfigFrameABDialogPrivate::initRadioButtons()
{
    mapper.mapEnumParam(params->GetEnum("ShutterMode", nullptr), shutterGroup);
    mapper.mapEnumParam(params->GetEnum("SensorADCBitDepth", nullptr), adcGroup);
    mapper.mapEnumParam(params->GetEnum("Frame_ExposureControl", nullptr), exposureControlGroup);
    QObject::connect(exposureControlGroup, QOverload<int, bool>::of(&QButtonGroup::buttonToggled), bound.get(),
                     [this](int, bool checked) {
                         if (checked)
                             updateExposureTime();
                     });
    mapper.mapEnumParam(params->GetEnum("Frame_DecimationMode", nullptr), subsamplingGroup);
    mapper.mapEnumParam(params->GetEnum("Frame_AnalogGain", nullptr), analogGainGroup);
}

void MoxCamConfigFrameABDialogPrivate::initSliders()
{
    ui->spBoxExpTime->slider()->setScaleType(QtMoxSlider::Log10Scale);
    ui->spBoxExpTime->setValidate(false);
    ui->spBoxExpTime->setValidateTyping(false);
    // What another camera has left here would be written to this one if it does not fit into the range.
    ui->spBoxExpTime->setValue(0);
    connectExposureTime();

    ui->spBoxFixedFramePeriodValue->slider()->setScaleType(QtMoxSlider::Log10Scale);
    mapper.mapIntParam(params->GetInt("Frame_FixedFramePeriodValue", nullptr), ui->spBoxFixedFramePeriodValue, this);
    ui->spBoxFixedFramePeriodValue->setValidate(false); // the grid of the lines is not that of the microseconds

    mapper.mapIntParam(params->GetInt("Frame_BlackLevel", nullptr), ui->spBoxBlackLevel, nullptr);
}

void MoxCamConfigFrameABDialogPrivate::initTabWidget()
{
    mapper.mapEnumParam(params->GetEnum("FrameAB_Selector", nullptr), ui->tabFrames);
    QObject::connect(ui->tabFrames, &QTabWidget::currentChanged, bound.get(),
                     [this](int index) { onPageChanged(index); });
}

void MoxCamConfigFrameABDialogPrivate::initCheckBoxes()
{
    mapper.mapBooleanParam(params->GetBoolean("Frame_FixedFramePeriodEnable", nullptr),
                           ui->chBoxFixedFramePeriodEnable);
    QObject::connect(ui->chBoxFixedFramePeriodEnable, &QAbstractButton::clicked, bound.get(), [this] {
        const QPointer<QObject> same(bound.get());
        updateFixedFramePeriod();
        if (same)
            updateExposureTime();
    });
    mapper.mapBooleanParam(params->GetBoolean("Frame_WdrEnable", nullptr), ui->chBoxWdrEnable);
}

void MoxCamConfigFrameABDialogPrivate::initLineEdit()
{
    forgetSize();
    widthActual = params->GetInt("Frame_WidthActual", nullptr);
    heightActual = params->GetInt("Frame_HeightActual", nullptr);
    sizeTimer = new QTimer(q);
    QObject::connect(sizeTimer, &QTimer::timeout, bound.get(), [this] { showSize(); });
    sizeTimer->start(1000);
}

void MoxCamConfigFrameABDialogPrivate::showSize()
{
    const QMutexLocker locker(&sizeMutex);
    QString text;
    if (widthActual)
        text += QString::number(widthActual->GetValue(nullptr));
    text += QLatin1Char('x');
    if (heightActual)
        text += QString::number(heightActual->GetValue(nullptr));
    ui->lineEditFrameCurrentSize->setText(text);
}

void MoxCamConfigFrameABDialogPrivate::forgetSize()
{
    const QMutexLocker locker(&sizeMutex);
    widthActual = nullptr;
    heightActual = nullptr;
    delete sizeTimer;
    sizeTimer = nullptr;
}

void MoxCamConfigFrameABDialogPrivate::onPageChanged(int index)
{
    moveLayout(index);
    onFrameModeChanged(ui->cmBoxFrameMode->currentText());
}

/** One layout with all the controls serves both frames: it stands on the page that is shown. */
void MoxCamConfigFrameABDialogPrivate::moveLayout(int index)
{
    QWidget *const page = index == 0 ? ui->tabFrameA : ui->tabFrameB;
    const QWidget *const other = index == 0 ? ui->tabFrameB : ui->tabFrameA;
    if (QLayout *layout = other->layout())
        page->setLayout(layout);
}

/** A control that is disabled counts as not bound, so that one which cannot be written is bound anew each time. */
void MoxCamConfigFrameABDialogPrivate::onFrameModeChanged(const QString &text)
{
    const bool onlyA = text == QLatin1String("FrameA");
    const bool onlyB = text == QLatin1String("FrameB");
    const QPointer<QObject> same(bound.get());
    // First, so that no current tab is disabled: the tab widget would go on with its page after the write that this makes.
    if (onlyA || onlyB)
        ui->tabFrames->setCurrentIndex(onlyA ? 0 : 1);
    if (!same)
        return;
    ui->tabFrames->setTabEnabled(0, !onlyB);
    ui->tabFrames->setTabEnabled(1, !onlyA);

    const bool single = onlyA || onlyB;
    // The control that has the line time in the other kind of mode loses it by this.
    QtMoxSliderSpinBox *const lineTimeControl = single ? ui->spBoxFrameLineTime : ui->spBoxDualVideo;
    if (!lineTimeControl->isEnabled())
        mapper.mapIntParam(params->GetInt("Frame_LineTime", nullptr), lineTimeControl, nullptr);

    if (ui->spBoxNumberOfFrameAs->isEnabled() != single)
        return; // bound in a mode with both frames, and not bound in one with a single frame
    const struct
    {
        const char *name;
        QtMoxSpinBox *control;
    } counts[] = {{"NumberOfFrameAs", ui->spBoxNumberOfFrameAs}, {"NumberOfFrameBs", ui->spBoxNumberOfFrameBs}};
    for (const auto &count : counts) {
        MoxGenParam::Int *param = params->GetInt(count.name, nullptr);
        if (!single)
            mapper.mapIntParam(param, count.control);
        else if (param)
            mapper.unmapParam(param);
        else
            count.control->setEnabled(false);
    }
}

void MoxCamConfigFrameABDialogPrivate::resizePopups()
{
    for (QtMoxSpinBox *spinBox : {ui->spBoxNumberOfFrameAs, ui->spBoxNumberOfFrameBs, ui->spBoxExpLines,
                                  ui->spBoxExpClocks, ui->spBoxFrameOffsetX, ui->spBoxFrameOffsetY, ui->spBoxFrameWidth,
                                  ui->spBoxFrameHeight, ui->spBoxWdrE1, ui->spBoxWdrE2, ui->spBoxWdrE3})
        spinBox->resizeSlider(popupSize(*spinBox).transposed()); // the slider stands upright
}

MoxCamConfigFrameABDialog::MoxCamConfigFrameABDialog(MoxCam::Device *device, QWidget *parent)
    : QDialog(parent), d(std::make_unique<MoxCamConfigFrameABDialogPrivate>())
{
    d->init(this, device);
}

MoxCamConfigFrameABDialog::~MoxCamConfigFrameABDialog() = default;

bool MoxCamConfigFrameABDialog::SetDevice(MoxCam::Device *device)
{
    return d->init(this, device);
}

void MoxCamConfigFrameABDialog::closeEvent(QCloseEvent *event)
{
    Q_EMIT closing();
    QDialog::closeEvent(event);
}

void MoxCamConfigFrameABDialog::showEvent(QShowEvent *event)
{
    d->resizePopups();
    QDialog::showEvent(event);
}

} // namespace MoxGui

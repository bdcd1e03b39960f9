// The behaviour of the simulated cameras, told as little scripts.
#include "bench.h"

#include <testmain.h>

#include <QRegularExpression>

using namespace GenApi_3_0;
using MoxSim::Model;
using MoxTest::Bench;

Q_DECLARE_METATYPE(MoxSim::Model)

namespace {

const QStringList modeNames{QStringLiteral("NI"), QStringLiteral("NA"), QStringLiteral("WO"), QStringLiteral("RO"),
                            QStringLiteral("RW")};

QString limits(IValue *feature)
{
    if (auto *integer = dynamic_cast<IInteger *>(feature))
        return QStringLiteral("%1..%2").arg(integer->GetMin()).arg(integer->GetMax());
    auto *real = dynamic_cast<IFloat *>(feature);
    return QStringLiteral("%1..%2").arg(real->GetMin()).arg(real->GetMax());
}

/**
 * Does one step of a script on a camera; gives what is wrong with its outcome.
 *
 * "A=x" writes, "A!=x" writes and is refused, "A==x" reads, "A()" executes, "A~RO" asks for the access mode, "A[1..9]"
 * for the limits, "+500" lets half a second pass.
 */
QString play(Bench &bench, const QString &step)
{
    static const QRegularExpression form(QStringLiteral("^(\\w*)(!=|==|=|~|\\+|\\(\\)|\\[)([^\\]]*)\\]?$"));
    const QRegularExpressionMatch match = form.match(step);
    if (!match.hasMatch())
        return QStringLiteral("is no step");
    const QString action = match.captured(2);
    const QString argument = match.captured(3);
    if (action == QLatin1String("+")) {
        bench.now += std::chrono::milliseconds(argument.toInt());
        // What the poll timer of an application does.
        bench.map->Poll(argument.toInt());
        return QString();
    }
    IValue *feature = bench.feature(match.captured(1));
    try {
        QString found = argument;
        if (action == QLatin1String("="))
            feature->FromString(argument.toUtf8().constData());
        else if (action == QLatin1String("()"))
            dynamic_cast<ICommand *>(feature)->Execute();
        else if (action == QLatin1String("=="))
            found = QString::fromUtf8(feature->ToString().c_str());
        else if (action == QLatin1String("~"))
            found = modeNames.at(feature->GetAccessMode());
        else if (action == QLatin1String("["))
            found = limits(feature);
        else
            feature->FromString(argument.toUtf8().constData(), false);
        if (action == QLatin1String("!="))
            return QStringLiteral("was taken");
        return found == argument ? QString() : QStringLiteral("finds ") + found;
    } catch (const GenICam_3_0::GenericException &exception) {
        return action == QLatin1String("!=") ? QString() : QString::fromUtf8(exception.GetDescription());
    }
}

} // namespace

class TestFirmware : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scripts_data();
    void scripts();
    void answers_data();
    void answers();
    void protectedBits();
    void temperatureMovesSlowly();
    void lookupTables();
    void textsWithoutEnd();
};

void TestFirmware::scripts_data()
{
    QTest::addColumn<Model>("model");
    QTest::addColumn<QString>("script");

    QTest::newRow("frames A and B keep their own values")
        << Model::FrameAB
        << "Frame_Width==4096 Width==4096 FrameAB_Selector=FrameB Frame_Width==1920 Width==1920 Height==1080"
           " CurrentExposureTime==1250 Frame_BlackLevel=99 FrameAB_Selector=FrameA Frame_BlackLevel==64"
           " CurrentExposureTime==5000 FrameAB_Selector=FrameB Frame_BlackLevel==99";
    QTest::newRow("the standard size is that of the chosen frame")
        << Model::FrameAB << "Width=2048 Frame_Width==2048 Frame_Height=1000 Height==1000 PayloadSize==2048000";
    QTest::newRow("offset and size limit each other")
        << Model::FrameAB
        << "Frame_OffsetX[0..0] Frame_OffsetX!=8 Frame_Width=2048 Frame_OffsetX[0..2048] Frame_OffsetX=1024"
           " Frame_Width[64..3072] Frame_Width!=3088 Frame_Width!=100 Frame_Width=3072";
    QTest::newRow("exposure time of lines and clocks")
        << Model::FrameAB
        << "Frame_ExposureLines=10 Frame_ExposureClocks=80 CurrentExposureTime==63 Frame_LineTime=2000"
           " CurrentExposureTime==125 Frame_ExposureClocks[0..1999] Frame_ExposureClocks=1999 Frame_LineTime=800"
           " Frame_ExposureClocks==799";
    QTest::newRow("no exposure is shorter than a microsecond")
        << Model::FrameAB << "Frame_ExposureLines=0 CurrentExposureTime==1 Frame_WdrE1[1..1]";
    QTest::newRow("fixed period limits the exposure")
        << Model::FrameAB
        << "Frame_FixedFramePeriodValue~RO Frame_FixedFramePeriodEnable=true Frame_FixedFramePeriodValue~RW"
           " Frame_FixedFramePeriodValue[3136..65535] CurrentFrameTime==50000 Frame_ExposureLines[0..7999]"
           " Frame_ExposureLines=7999 Frame_FixedFramePeriodValue=4000 Frame_ExposureLines==3999"
           " CurrentFrameTime==25000 Frame_FixedFramePeriodEnable=false Frame_ExposureLines[0..65535]";
    QTest::newRow("long exposures make frames long, global ones longer")
        << Model::FrameAB
        << "CurrentFrameTime==19600 Frame_ExposureLines=4000 CurrentFrameTime==25006 ShutterMode=Global"
           " CurrentFrameTime==44600 Frame_LineTime[960..65535]";
    QTest::newRow("exposure control")
        << Model::FrameAB
        << "Frame_ExposureControl=Off CurrentExposureTime==19600 Frame_ExposureLines~RO"
           " Frame_ExposureControl=Trigger PulseGenWidth=700 CurrentExposureTime==700"
           " Frame_ExposureControl=Internal CurrentExposureTime==5000 Frame_ExposureLines~RW";
    QTest::newRow("decimation")
        << Model::FrameAB
        << "Frame_Averaging~NA Frame_SubsamplingM~NA Frame_DecimationMode=Averaging Frame_Averaging~RW"
           " Frame_WidthActual==2048 Frame_HeightActual==1536 Frame_Averaging=Average4x4 Frame_WidthActual==1024"
           " Frame_DecimationMode=Subsampling Frame_Averaging~NA Frame_SubsamplingM=M8 Frame_HeightActual==384"
           " Frame_FixedFramePeriodValue[448..65535] PayloadSize==196608 Frame_Width==4096";
    QTest::newRow("wide dynamic range")
        << Model::FrameAB
        << "Frame_WdrE1~RO Frame_WdrP1~RO Frame_WdrEnable=true Frame_WdrE1~RW Frame_WdrE1[1..5000] Frame_WdrE1=300"
           " Frame_WdrE2==300 Frame_WdrE2!=301 Frame_WdrE3==100 Frame_WdrE2=50 Frame_WdrE3==50";
    QTest::newRow("frame counts belong to dual modes")
        << Model::FrameAB
        << "NumberOfFrameAs~NA FrameMode=FrameAB NumberOfFrameAs~RW NumberOfFrameBs=3 FrameMode=FrameB"
           " NumberOfFrameBs~NA";
    QTest::newRow("ten bits hold no formats of twelve")
        << Model::FrameAB
        << "PixelFormat=Mono12Packed PixelSize==Bpp12 SensorADCBitDepth=Bits10 PixelFormat==Mono10Packed"
           " Frame_LineTime[640..65535] SensorADCBitDepth=Bits12 PixelFormat=Mono12";
    QTest::newRow("locked while images are taken")
        << Model::FrameAB << "TLParamsLocked=1 Width~RO PixelFormat~RO TLParamsLocked=0 Width~RW";

    QTest::newRow("binning and decimation leave less")
        << Model::Plain
        << "OffsetX[0..0] Width=1024 OffsetX=512 BinningHorizontal=2 WidthMax==1024 Width==1024 OffsetX==0"
           " DecimationHorizontal=8 WidthMax==128 Width==128 BinningHorizontal!=3 Width[16..128]";
    QTest::newRow("fixed frame rate limits the exposure")
        << Model::Plain
        << "AcquisitionFrameRate~NA ExposureTime[10..1e+07] AcquisitionFrameRateEnable=true AcquisitionFrameRate=25"
           " CurrentFrameTime==40000 ExposureTime[10..39992.5] ExposureTime=39992.5 AcquisitionFrameRate=30"
           " CurrentExposureTime==33325 AcquisitionFrameRateEnable=false ExposureTime=50000 CurrentFrameTime==50007";
    QTest::newRow("the link limits the frame rate")
        << Model::Plain
        << "CurrentFrameTime==25165 DeviceLinkThroughputLimit=62500000 CurrentFrameTime==50331 Height=768"
           " CurrentFrameTime==25165 PixelFormat=Mono12 CurrentFrameTime==50331"
           " DeviceLinkThroughputLimitMode=Off CurrentFrameTime==10007";

    QTest::newRow("software trigger")
        << Model::Plain
        << "TriggerSoftware~NA TriggerActivation~RO TriggerMode=On TriggerSoftware~NA TriggerActivation~RW"
           " TriggerSource=Software TriggerActivation~RO TriggerDebounce~RW TriggerSoftware~WO TriggerSoftware()"
           " TriggerCount==1 TriggerMissedCount==0 TriggerSoftware() TriggerCount==2 TriggerMissedCount==1 +1000"
           " TriggerSoftware() TriggerCount==3 TriggerMissedCount==1 CounterValue==2 TriggerCountReset()"
           " TriggerCount==0 CounterReset() CounterValue==0 CounterValueAtReset==2";
    QTest::newRow("images by the clock")
        << Model::Plain
        << "AcquisitionStatus==false AcquisitionStart() AcquisitionStatus==true +1000 AcquisitionFrameCounter==39"
           " AcquisitionStop() +1000 AcquisitionFrameCounter==39 AcquisitionStatus==false"
           " AcquisitionMode=MultiFrame AcquisitionFrameCount=3 AcquisitionStart() +1000"
           " AcquisitionFrameCounter==3 AcquisitionStatus==false";
    QTest::newRow("images by the trigger")
        << Model::Plain
        << "TriggerMode=On TriggerSource=Software AcquisitionMode=SingleFrame AcquisitionStart()"
           " AcquisitionStatusSelector=FrameTriggerWait +1000 AcquisitionStatus==true AcquisitionFrameCounter==0"
           " TriggerSoftware() +1000 AcquisitionFrameCounter==1 AcquisitionStatus==false";
    QTest::newRow("timer") << Model::Plain
                           << "TimerDelay=100000 TimerReset() +50 TimerStatus==TimerDelay +500 TimerStatus==TimerActive"
                              " TimerValue==550000 +500 TimerStatus==TimerIdle TimerValue==6e+05";

    QTest::newRow("pulses without end")
        << Model::Plain
        << "PulseGenPeriod=1000 PulseGenWidth==1000 PulseGenNumPulses~RO PulseGenEnable=true +2000"
           " PulseGenCount==2000 PulseGenGranularity=x1000 +2000 PulseGenCount==2002 PulseGenEnable=false +2000"
           " PulseGenCount==2002 PulseGenEnable=true +1000 PulseGenCount==1";
    QTest::newRow("a number of pulses")
        << Model::Plain
        << "PulseGenMode=Send PulseGenNumPulses~RW PulseGenNumPulses=30 PulseGenWidth[1..40000] PulseGenEnable=true"
           " +1000 PulseGenCount==25 PulseGenEnable==true +1000 PulseGenCount==30 PulseGenEnable==false";
    QTest::newRow("pulses trigger and are counted")
        << Model::Plain
        << "CounterEventSource=PulseGenerator TriggerMode=On TriggerSource=PulseGenerator PulseGenEnable=true +1000"
           " PulseGenCount==25 TriggerCount==25 CounterValue==25 PulseGenEnable=false PulseGenEnable=true +1000"
           " CounterValue==50";

    QTest::newRow("strobe times belong to the timed mode")
        << Model::Plain
        << "Strobe1Delay~RW Strobe2Delay~RO Strobe2Mode=Timed Strobe2Width~RW Strobe2Width=1000000"
           " Strobe2Width!=1000001 Strobe1Mode=ExposureActive Strobe1Width~RO";
    QTest::newRow("one output under two names")
        << Model::Plain
        << "OUT1Selector=UserOutput1 LineSelector=Line2 LineSource==UserOutput1 LineStatus==false"
           " UserOutputValue=true UserOutputValueAll==0x1 LineStatus==true LineInverter=true"
           " OUT1Polarity==ActiveLow LineStatus==false OUT1Polarity=ActiveHigh LineStatusAll==0x4";
    QTest::newRow("lookup table")
        << Model::Plain
        << "LUTIndex~NA LUTEnable=true LUTIndex=255 LUTValue==4095 LUTIndex=1 LUTValue==16 LUTSelector=LUT3"
           " LUTValue==4079 LUTValue=7 LUTSelector=LUT1 LUTValue==16 LUTSelector=LUT3 LUTValue==7 LUTReset()"
           " LUTValue==16";
    QTest::newRow("factory data")
        << Model::Plain
        << "FactoryCalibration~NA MaintenanceKey=1 FactoryCalibration~NA MaintenanceKey=1297638241"
           " FactoryCalibration~RO MaintenanceOpen==true";
    QTest::newRow("time counters")
        << Model::Plain
        << "+1500 DeviceUptime==1 Timestamp==1500000000 TimestampLatch() +1000 TimestampLatchValue==1500000000"
           " TimestampReset() Timestamp==0 +10 Timestamp==10000000 DeviceUptime==2 GevTimestampControlLatch()"
           " GevTimestampValue==10000000 GevTimestampControlReset() Timestamp==0";

    QTest::newRow("user sets")
        << Model::Plain
        << "UserSetSave~NA BlackLevel=100 Gamma~NA UserSetSelector=UserSet1 UserSetSaved==false UserSetSave()"
           " UserSetSaved==true BlackLevel=200 UserSetSelector=Default UserSetLoad() BlackLevel==64"
           " UserSetSelector=UserSet1 UserSetLoad() BlackLevel==100 UserSetSelector=UserSet2 UserSetLoad()"
           " BlackLevel==64";
    QTest::newRow("reset")
        << Model::Plain
        << "DeviceUserID=Left UserMemo=Note BlackLevel=100 UserSetSelector=UserSet2 UserSetSave() BlackLevel=300"
           " +5000 DeviceReset() BlackLevel==64 DeviceUptime==0 DeviceUserID==Left UserMemo==Note"
           " UserSetDefault=UserSet2 DeviceReset() BlackLevel==100 UserSetSelector==Default";

    QTest::newRow("white balance, once")
        << Model::Color
        << "RedCoefficient~RW BalanceWhiteAuto=Once RedCoefficient~RO RedCoefficient==256 +1000 RedCoefficient==334"
           " BlueCoefficient==397 BalanceWhiteAuto==Once +1000 RedCoefficient==412 GreenCoefficient==256"
           " BlueCoefficient==538 BalanceWhiteAuto==Off RedCoefficient~RW BalanceRatio==1.609375";
    QTest::newRow("white balance, fast and lasting")
        << Model::Color
        << "AutoTrackingSpeed=Fast BalanceWhiteAuto=Continuous +1000 RedCoefficient==412 BalanceWhiteAuto==Continuous"
           " +60000 BalanceWhiteAuto==Continuous BalanceWhiteAuto=Off RedCoefficient=256 +1000 RedCoefficient==256"
           " RedCoefficient!=4096";
    QTest::newRow("colour matrix")
        << Model::Color
        << "ColorTransformationValue~NA ColorTransformationEnable=true ColorTransformationValue==1"
           " ColorTransformationValueSelector=GainRG ColorTransformationValue==0 ColorTransformationValue=-0.25"
           " ColorTransformationValue==-0.25 ColorTransformationValueSelector=GainBB ColorTransformationValue==1";
}

void TestFirmware::scripts()
{
    QFETCH(Model, model);
    QFETCH(QString, script);
    Bench bench(model);
    for (const QString &step : script.split(QLatin1Char(' '))) {
        const QString fault = play(bench, step);
        QVERIFY2(fault.isEmpty(), qPrintable(step + QLatin1String(": ") + fault));
    }
}

void TestFirmware::answers_data()
{
    QTest::addColumn<QString>("reg");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("length");
    QTest::addColumn<qint64>("value"); // -1 reads
    QTest::addColumn<QString>("answer");

    QTest::newRow("in range") << "WidthReg" << 0 << 4 << qint64(1024) << "";
    QTest::newRow("above the limit") << "WidthReg" << 0 << 4 << qint64(2064) << "INVALID_PARAMETER (0x8002)";
    QTest::newRow("between the steps") << "WidthReg" << 0 << 4 << qint64(1025) << "INVALID_PARAMETER (0x8002)";
    QTest::newRow("no entry") << "TriggerModeReg" << 0 << 4 << qint64(2) << "INVALID_PARAMETER (0x8002)";
    QTest::newRow("read only") << "SensorWidthReg" << 0 << 4 << qint64(64) << "WRITE_PROTECT (0x8004)";
    QTest::newRow("nowhere, read") << "WidthReg" << 0x1000000 << 4 << qint64(-1) << "INVALID_ADDRESS (0x8003)";
    QTest::newRow("nowhere, written") << "WidthReg" << 0x1000000 << 4 << qint64(0) << "INVALID_ADDRESS (0x8003)";
    QTest::newRow("over the end") << "DeviceUserID" << 12 << 8 << qint64(-1) << "INVALID_ADDRESS (0x8003)";
    QTest::newRow("before the start") << "DeviceVendorName" << -0x49 << 4 << qint64(-1) << "INVALID_ADDRESS (0x8003)";
    QTest::newRow("a part, still valid") << "WidthReg" << 3 << 1 << qint64(0xF0) << "INVALID_PARAMETER (0x8002)";
    QTest::newRow("read only, and on into what is not")
        << "DeviceSerialNumber" << 12 << 8 << qint64(0) << "WRITE_PROTECT (0x8004)";
    QTest::newRow("a part of a text") << "DeviceUserID" << 4 << 4 << qint64(0x41424344) << "";
}

void TestFirmware::answers()
{
    QFETCH(QString, reg);
    QFETCH(int, offset);
    QFETCH(int, length);
    QFETCH(qint64, value);
    QFETCH(QString, answer);
    Bench bench(Model::Plain);
    const std::int64_t address = bench.firmware.registers().map().find(reg.toStdString())->address + offset;
    const std::int64_t width = bench.firmware.registers().integer("WidthReg");
    std::uint8_t bytes[8] = {};
    for (int i = 0; i < length; ++i)
        bytes[i] = std::uint8_t(value >> 8 * (length - 1 - i));
    QString found;
    try {
        if (value < 0)
            bench.firmware.read(bytes, address, length);
        else
            bench.firmware.write(bytes, address, length);
    } catch (const GenICam_3_0::GenericException &exception) {
        found = QString::fromUtf8(exception.GetDescription());
        QCOMPARE(bench.firmware.registers().integer("WidthReg"), width);
    }
    QVERIFY2(answer.isEmpty() ? found.isEmpty() : found.contains(answer), qPrintable(found));
}

void TestFirmware::protectedBits()
{
    // One register holds bits that are the host's to write and one that is not.
    Bench bench(Model::Plain);
    const std::uint8_t none[4] = {};
    bench.firmware.write(none, 0x14, 4);
    QCOMPARE(bench.firmware.registers().integer("IPConfigurationDHCPBit"), std::int64_t(0));
    QCOMPARE(bench.firmware.registers().integer("IPConfigurationLLABit"), std::int64_t(1));
}

void TestFirmware::temperatureMovesSlowly()
{
    Bench bench(Model::FrameAB);
    auto *temperature = dynamic_cast<IInteger *>(bench.feature(QStringLiteral("CurrentTemperature")));
    std::int64_t before = temperature->GetValue();
    QSet<std::int64_t> seen;
    for (int second = 0; second < 1800; ++second) {
        QCOMPARE(play(bench, QStringLiteral("+1000")), QString());
        const std::int64_t now = temperature->GetValue();
        QVERIFY(qAbs(now - before) <= 1);
        QVERIFY(now >= 31 && now <= 43);
        seen += now;
        before = now;
    }
    QVERIFY(seen.size() >= 10);
}

void TestFirmware::lookupTables()
{
    // The whole table is in the byte order of the device.
    for (const Model model : {Model::Plain, Model::Color}) {
        Bench bench(model);
        QCOMPARE(play(bench, QStringLiteral("LUTEnable=true")), QString());
        auto *all = dynamic_cast<IRegister *>(bench.feature(QStringLiteral("LUTValueAll")));
        QCOMPARE(all->GetLength(), std::int64_t(1024));
        std::vector<std::uint8_t> bytes(1024);
        all->Get(bytes.data(), 1024);
        const std::size_t low = model == Model::Plain ? 3 : 0;
        QCOMPARE(int(bytes[4 + low]), 16);
        bytes[4 + low] = 17;
        all->Set(bytes.data(), 1024);
        QCOMPARE(play(bench, QStringLiteral("LUTIndex=1")), QString());
        QCOMPARE(play(bench, QStringLiteral("LUTValue==17")), QString());
    }
}

void TestFirmware::textsWithoutEnd()
{
    // A text that fills its register has no terminating zero there.
    Bench bench(Model::Plain);
    bench.firmware.registers().setText("DeviceUserID", "sixteen letters!");
    QCOMPARE(bench.firmware.registers().text("DeviceUserID"), std::string("sixteen letters!"));
    bench.firmware.registers().setText("DeviceUserID", "more than sixteen letters");
    QCOMPARE(bench.firmware.registers().text("DeviceUserID"), std::string("more than sixtee"));
    QCOMPARE(play(bench, QStringLiteral("DeviceUserID==more")), QStringLiteral("finds more than sixtee"));
}

MOX_TEST_MAIN(TestFirmware)
#include "tst_firmware.moc"

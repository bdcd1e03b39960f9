// The behaviour of the simulated cameras, told as little scripts.
#include "../featurescript.h"
#include "bench.h"

#include <datarow.h>
#include <testmain.h>

using namespace GenApi_3_0;
using MoxSim::Model;
using MoxTest::Bench;
using MoxTest::columns;

namespace {

/**
 * Does a step of a script; besides those of play(), "+500" lets half a second pass and "+5n" five nanoseconds, "@5,7,1"
 * commands an action with these keys and this mask, "@5,7,1,ff" at that time, in base 16, and "@!" is not obeyed.
 */
QString playOn(Bench &bench, const QString &step)
{
    if (step.startsWith(QLatin1Char('@'))) {
        const bool isRefused = step.at(1) == QLatin1Char('!');
        MoxSdk::Action action;
        QStringList numbers = step.mid(isRefused ? 2 : 1).split(QLatin1Char(','));
        for (std::uint32_t *number : {&action.deviceKey, &action.groupKey, &action.groupMask})
            *number = numbers.takeFirst().toUInt(nullptr, 16);
        if (!numbers.isEmpty())
            action.time = numbers.first().toULongLong(nullptr, 16);
        return bench.firmware.act(action) == isRefused ? QStringLiteral("is wrong") : QString();
    }
    if (!step.startsWith(QLatin1Char('+')))
        return MoxTest::play(*bench.map, step);
    const bool isShort = step.endsWith(QLatin1Char('n'));
    const qint64 time = step.chopped(isShort).toLongLong();
    bench.now += isShort ? std::chrono::nanoseconds(time) : std::chrono::milliseconds(time);
    // What the poll timer of an application does.
    bench.map->Poll(isShort ? 0 : time);
    return QString();
}

} // namespace

class TestFirmware : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scripts_data()
    {
        columns<int, QByteArray>("model", "script");
        const auto row = [](Model model, const char *name, const QByteArray &script) {
            MoxTest::row(name, model, script);
        };
        row(Model::FrameAB, "frames A and B keep their own values",
            "Frame_Width==4096 Width==4096 FrameAB_Selector=FrameB Frame_Width==1920 Width==1920 Height==1080"
            " CurrentExposureTime==1250 Frame_BlackLevel=99 FrameAB_Selector=FrameA Frame_BlackLevel==64"
            " CurrentExposureTime==5000 FrameAB_Selector=FrameB Frame_BlackLevel==99");
        row(Model::FrameAB, "the standard size is that of the chosen frame",
            "Width=2048 Frame_Width==2048 Frame_Height=1000 Height==1000 PayloadSize==2048000");
        row(Model::FrameAB, "offset and size limit each other",
            "Frame_OffsetX[0..0] Frame_OffsetX!=8 Frame_Width=2048 Frame_OffsetX[0..2048] Frame_OffsetX=1024"
            " Frame_Width[64..3072] Frame_Width!=3088 Frame_Width!=100 Frame_Width=3072");
        row(Model::FrameAB, "exposure time of lines and clocks",
            "Frame_ExposureLines=10 Frame_ExposureClocks=80 CurrentExposureTime==63 Frame_LineTime=2000"
            " CurrentExposureTime==125 Frame_ExposureClocks[0..1999] Frame_ExposureClocks=1999 Frame_LineTime=800"
            " Frame_ExposureClocks==799");
        row(Model::FrameAB, "fixed period limits the exposure",
            "Frame_FixedFramePeriodValue~RO Frame_FixedFramePeriodEnable=true Frame_FixedFramePeriodValue~RW"
            " Frame_FixedFramePeriodValue[3136..65535] CurrentFrameTime==50000 Frame_ExposureLines[0..7999]"
            " Frame_ExposureLines=7999 Frame_FixedFramePeriodValue=4000 Frame_ExposureLines==3999"
            " CurrentFrameTime==25000 Frame_FixedFramePeriodEnable=false Frame_ExposureLines[0..65535]");
        row(Model::FrameAB, "long exposures make frames long, global ones longer",
            "CurrentFrameTime==19600 Frame_ExposureLines=4000 CurrentFrameTime==25006 ShutterMode=Global"
            " CurrentFrameTime==44600 Frame_LineTime[960..65535]");
        row(Model::FrameAB, "decimation",
            "Frame_Averaging~NA Frame_SubsamplingM~NA Frame_DecimationMode=Averaging Frame_Averaging~RW"
            " Frame_WidthActual==2048 Frame_HeightActual==1536 Frame_Averaging=Average4x4 Frame_WidthActual==1024"
            " Frame_DecimationMode=Subsampling Frame_Averaging~NA Frame_SubsamplingM=M8 Frame_HeightActual==384"
            " Frame_FixedFramePeriodValue[448..65535] PayloadSize==196608 Frame_Width==4096");
        row(Model::FrameAB, "ten bits hold no formats of twelve",
            "PixelFormat=Mono12Packed PixelSize==Bpp12 SensorADCBitDepth=Bits10 PixelFormat==Mono10Packed"
            " Frame_LineTime[640..65535] SensorADCBitDepth=Bits12 PixelFormat=Mono12");
        row(Model::Plain, "binning and decimation leave less",
            "OffsetX[0..0] Width=1024 OffsetX=512 BinningHorizontal=2 WidthMax==1024 Width==1024 OffsetX==0"
            " DecimationHorizontal=8 WidthMax==128 Width==128 BinningHorizontal!=3 Width[16..128]");
        row(Model::Plain, "fixed frame rate limits the exposure",
            "AcquisitionFrameRate~NA ExposureTime[10..1e+07] AcquisitionFrameRateEnable=true AcquisitionFrameRate=25"
            " CurrentFrameTime==40000 ExposureTime[10..39992.5] ExposureTime=39992.5 AcquisitionFrameRate=30"
            " CurrentExposureTime==33325 AcquisitionFrameRateEnable=false ExposureTime=50000 CurrentFrameTime==50007");
        row(Model::Plain, "the link limits the frame rate",
            "CurrentFrameTime==25165 DeviceLinkThroughputLimit=62500000 CurrentFrameTime==50331 Height=768"
            " CurrentFrameTime==25165 PixelFormat=Mono12 CurrentFrameTime==50331 DeviceLinkThroughputLimitMode=Off"
            " CurrentFrameTime==10007");
        row(Model::Plain, "software trigger",
            "TriggerSoftware~NA TriggerActivation~RO TriggerMode=On TriggerSoftware~NA TriggerActivation~RW"
            " TriggerSource=Software TriggerActivation~RO TriggerDebounce~RW TriggerSoftware~WO TriggerSoftware()"
            " TriggerCount==1 TriggerMissedCount==0 TriggerSoftware() TriggerCount==2 TriggerMissedCount==1 +1000"
            " TriggerSoftware() TriggerCount==3 TriggerMissedCount==1 CounterValue==2 TriggerCountReset()"
            " TriggerCount==0 CounterReset() CounterValue==0 CounterValueAtReset==2");
        row(Model::Plain, "images by the clock",
            "AcquisitionStatus==false AcquisitionStart() AcquisitionStatus==true +1000 AcquisitionFrameCounter==39"
            " AcquisitionStop() +1000 AcquisitionFrameCounter==39 AcquisitionStatus==false AcquisitionMode=MultiFrame"
            " AcquisitionFrameCount=3 AcquisitionStart() +1000 AcquisitionFrameCounter==3 AcquisitionStatus==false");
        row(Model::Plain, "pulses without end",
            "PulseGenPeriod=1000 PulseGenWidth==1000 PulseGenNumPulses~RO PulseGenEnable=true +2000 PulseGenCount==2000"
            " PulseGenGranularity=x1000 +2000 PulseGenCount==2002 PulseGenEnable=false +2000 PulseGenCount==2002"
            " PulseGenEnable=true +1000 PulseGenCount==1");
        row(Model::Plain, "pulses trigger and are counted",
            "CounterEventSource=PulseGenerator TriggerMode=On TriggerSource=PulseGenerator PulseGenEnable=true +1000"
            " PulseGenCount==25 TriggerCount==25 CounterValue==25 PulseGenEnable=false PulseGenEnable=true +1000"
            " CounterValue==50");
        row(Model::Plain, "one output under two names",
            "OUT1Selector=UserOutput1 LineSelector=Line2 LineSource==UserOutput1 LineStatus==false UserOutputValue=true"
            " UserOutputValueAll==0x1 LineStatus==true LineInverter=true OUT1Polarity==ActiveLow LineStatus==false"
            " OUT1Polarity=ActiveHigh LineStatusAll==0x4");
        row(Model::Plain, "lookup table",
            "LUTIndex~NA LUTEnable=true LUTIndex=255 LUTValue==4095 LUTIndex=1 LUTValue==16 LUTSelector=LUT3"
            " LUTValue==4079 LUTValue=7 LUTSelector=LUT1 LUTValue==16 LUTSelector=LUT3 LUTValue==7 LUTReset()"
            " LUTValue==16");
        row(Model::Plain, "time counters",
            "+1500 DeviceUptime==1 Timestamp==1500000000 TimestampLatch() +1000 TimestampLatchValue==1500000000"
            " TimestampReset() Timestamp==0 +10 Timestamp==10000000 DeviceUptime==2 GevTimestampControlLatch()"
            " GevTimestampValue==10000000 GevTimestampControlReset() Timestamp==0");
        row(Model::Plain, "user sets",
            "UserSetSave~NA BlackLevel=100 Gamma~NA UserSetSelector=UserSet1 UserSetSaved==false UserSetSave()"
            " UserSetSaved==true BlackLevel=200 UserSetSelector=Default UserSetLoad() BlackLevel==64"
            " UserSetSelector=UserSet1 UserSetLoad() BlackLevel==100 UserSetSelector=UserSet2 UserSetLoad()"
            " BlackLevel==64");
        row(Model::Plain, "reset",
            "DeviceUserID=Left UserMemo=Note BlackLevel=100 UserSetSelector=UserSet2 UserSetSave() BlackLevel=300 +5000"
            " DeviceReset() BlackLevel==64 DeviceUptime==0 DeviceUserID==Left UserMemo==Note UserSetDefault=UserSet2"
            " DeviceReset() BlackLevel==100 UserSetSelector==Default");
        row(Model::Color, "white balance, once",
            "RedCoefficient~RW BalanceWhiteAuto=Once RedCoefficient~RO RedCoefficient==256 +1000 RedCoefficient==334"
            " BlueCoefficient==397 BalanceWhiteAuto==Once +1000 RedCoefficient==412 GreenCoefficient==256"
            " BlueCoefficient==538 BalanceWhiteAuto==Off RedCoefficient~RW BalanceRatio==1.609375");
        row(Model::Color, "white balance, fast and lasting",
            "AutoTrackingSpeed=Fast BalanceWhiteAuto=Continuous +1000 RedCoefficient==412 BalanceWhiteAuto==Continuous"
            " +60000 BalanceWhiteAuto==Continuous BalanceWhiteAuto=Off RedCoefficient=256 +1000 RedCoefficient==256"
            " RedCoefficient!=4096");
        row(Model::Plain, "actions by their keys",
            "@5,7,80000000 ActionCount==1 @!6,7,1 @!5,8,1 ActionDeviceKey=4294967295 @ffffffff,7,1 ActionCount?=2"
            " ActionDeviceKey=5 ActionGroupMask=6 @!5,7,fffffff9 ActionSelector=1 ActionGroupKey=9 ActionGroupMask=4"
            " @5,9,5 ActionCount?=1 ActionGroupKey=7 @5,7,4 ActionCount?=2 ActionSelector=0 ActionCount?=3");
        // What comes too late is done at once, and is no success; eight are kept for later.
        row(Model::Plain, "actions at their time",
            "+4294967294n @!5,7,1,fffffffe ActionCount?=1 @5,7,1,100000000 @5,7,1,ffffffff ActionCount?=1 +1n"
            " ActionCount?=2 +1n ActionCount?=3 +1n ActionCount?=3 "
                + QByteArray("@5,7,1,ffffffffffffffff ").repeated(8)
                + "@!5,7,1,ffffffffffffffff DeviceReset() ActionCount?=0 @5,7,1,ffffffffffffffff");
    }
    void scripts()
    {
        QFETCH(int, model);
        QFETCH(QByteArray, script);
        Bench bench{Model(model)};
        for (const QString &step : QString::fromLatin1(script).split(QLatin1Char(' '))) {
            const QString fault = playOn(bench, step);
            QVERIFY2(fault.isEmpty(), qPrintable(step + QLatin1String(": ") + fault));
        }
    }

    void answers_data()
    {
        columns<QByteArray, int, int, qint64, QByteArray>("reg", "offset", "length", "value", "answer"); // -1 reads
        const auto row = [](const char *name, const char *reg, int offset, int length, qint64 value,
                            const char *answer) { MoxTest::row(name, reg, offset, length, value, answer); };
        row("above the limit", "WidthReg", 0, 4, 2064, "INVALID_PARAMETER (0x8002)");
        row("between the steps", "WidthReg", 0, 4, 1025, "INVALID_PARAMETER (0x8002)");
        row("read only", "SensorWidthReg", 0, 4, 64, "WRITE_PROTECT (0x8004)");
        row("nowhere, read", "WidthReg", 0x1000000, 4, -1, "INVALID_ADDRESS (0x8003)");
        row("over the end", "DeviceUserID", 12, 8, -1, "INVALID_ADDRESS (0x8003)");
        row("before the start", "DeviceVendorName", -0x49, 4, -1, "INVALID_ADDRESS (0x8003)");
        row("a part, still valid", "WidthReg", 3, 1, 0xF0, "INVALID_PARAMETER (0x8002)");
        row("read only, and on into what is not", "DeviceSerialNumber", 12, 8, 0, "WRITE_PROTECT (0x8004)");
        row("a part of a text", "DeviceUserID", 4, 4, 0x41424344, "");
    }
    void answers()
    {
        QFETCH(QByteArray, reg);
        QFETCH(int, offset);
        QFETCH(int, length);
        QFETCH(qint64, value);
        QFETCH(QByteArray, answer);
        Bench bench(Model::Plain);
        MoxSdk::CameraRegisters &registers = bench.firmware.registers();
        const std::int64_t address = registers.map().find(reg.toStdString())->address + offset;
        const std::int64_t width = registers.integer("WidthReg");
        std::uint8_t bytes[8] = {};
        for (int i = 0; i < length; ++i)
            bytes[i] = std::uint8_t(value >> 8 * (length - 1 - i));
        const QString found = MoxTest::thrown([&] {
            value < 0 ? bench.firmware.read(bytes, address, length) : bench.firmware.write(bytes, address, length);
        });
        QCOMPARE(registers.integer("WidthReg"), width);
        QVERIFY2(answer.isEmpty() ? found.isEmpty() : found.contains(QLatin1String(answer)), qPrintable(found));
    }

    void bitsAndTexts()
    {
        Bench bench(Model::Plain);
        MoxSdk::CameraRegisters &registers = bench.firmware.registers();
        // One register holds bits that are the host's to write and one that is not.
        const std::uint8_t none[4] = {};
        bench.firmware.write(none, 0x14, 4);
        QCOMPARE(registers.integer("IPConfigurationDHCPBit"), std::int64_t(0));
        QCOMPARE(registers.integer("IPConfigurationLLABit"), std::int64_t(1));
        // A text that fills its register has no terminating zero there.
        registers.setText("DeviceUserID", "more than sixteen letters");
        QCOMPARE(registers.text("DeviceUserID"), std::string("more than sixtee"));
        QCOMPARE(playOn(bench, QStringLiteral("DeviceUserID==more than sixtee")), QString());
    }

    void lookupTables()
    {
        // The whole table is in the byte order of the device.
        for (const Model model : {Model::Plain, Model::Color}) {
            Bench bench(model);
            QCOMPARE(playOn(bench, QStringLiteral("LUTEnable=true")), QString());
            auto *all = dynamic_cast<IRegister *>(bench.map->GetNode("LUTValueAll"));
            QCOMPARE(all->GetLength(), std::int64_t(1024));
            std::vector<std::uint8_t> bytes(1024);
            all->Get(bytes.data(), 1024);
            const std::size_t low = model == Model::Plain ? 3 : 0;
            QCOMPARE(int(bytes[4 + low]), 16);
            bytes[4 + low] = 17;
            all->Set(bytes.data(), 1024);
            QCOMPARE(playOn(bench, QStringLiteral("LUTIndex=1")), QString());
            QCOMPARE(playOn(bench, QStringLiteral("LUTValue==17")), QString());
        }
    }
};

MOX_TEST_MAIN(TestFirmware)
#include "tst_firmware.moc"

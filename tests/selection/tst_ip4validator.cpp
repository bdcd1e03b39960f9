#include "ip4validator.h"
#include "testmain.h"

#include <QClipboard>
#include <QLineEdit>
#include <QRegularExpression>

#include <random>

namespace {

/** The rule once more, said by patterns: four numbers from 0 to 255, however they are written, or gaps, or nothing. */
QValidator::State rule(const QString &text)
{
    static const QString number = QStringLiteral("\\s*(\\+?0*(\\d|[1-9]\\d|1\\d\\d|2[0-4]\\d|25[0-5])|-0+)\\s*");
    static const QRegularExpression complete(QStringLiteral("\\A((%1)(\\.(%1)){3})?\\z").arg(number));
    static const QRegularExpression partial(QStringLiteral("\\A(%1|\\s*)(\\.(%1|\\s*)){0,3}\\z").arg(number));
    if (complete.match(text).hasMatch())
        return QValidator::Acceptable;
    return partial.match(text).hasMatch() ? QValidator::Intermediate : QValidator::Invalid;
}

} // namespace

class TestIp4Validator : public QObject
{
    Q_OBJECT

private:
    const IP4Validator validator{nullptr};
    std::mt19937 random{20240531};

    int below(int limit) { return std::uniform_int_distribution<>(0, limit - 1)(random); }
    QString randomText(int length)
    {
        // Mostly what addresses are made of, so that the verdicts are mixed.
        static const QString alphabet = QStringLiteral("0123456789012525....... -+a");
        QString text;
        while (length-- > 0)
            text += alphabet.at(below(alphabet.size()));
        return text;
    }

private Q_SLOTS:
    void verdicts()
    {
        const std::map<QValidator::State, std::vector<const char *>> table = {
            {QValidator::Acceptable, {"", "192.168.1.5", "0.0.0.0", "255.255.255.255", "1.2.3. 4", "+1.-0.007.4"}},
            {QValidator::Intermediate, {"192.168.1.", "1..2.3", "...", ".", " ", "7", "255.255", "1.2.3. ", " .2.3.4"}},
            {QValidator::Invalid,
             {"192.168.1.256", "1.2.3.4.5", "a.1", "....", "-1", "1.2.3.0x4", "1 2.3.4.5", "1,2", "99999999999.1"}}};
        for (const auto &[state, texts] : table) {
            for (const char *text : texts) {
                QString input = QString::fromLatin1(text);
                int pos = 1;
                QVERIFY2(validator.validate(input, pos) == state && rule(input) == state, text);
                QVERIFY2(input == QLatin1String(text) && pos == 1, text);
            }
        }
        for (int i = 0; i < 20000; ++i) {
            QString text = randomText(below(15));
            int pos = 0;
            QVERIFY2(validator.validate(text, pos) == rule(text), qPrintable(text));
        }
    }

    // A field takes an edit exactly when the rule calls its outcome possible.
    void editing()
    {
        QLineEdit edit;
        edit.setValidator(&validator);
        int refused = 0;
        for (int i = 0; i < 6000; ++i) {
            if (i % 50 == 0)
                edit.setText(i % 100 ? QStringLiteral("192.168.1.25") : QString());
            const QString before = edit.text();
            const int at = below(before.size() + 1);
            QString wanted = before;
            edit.setCursorPosition(at);
            if (const int way = below(3); way < 2) {
                const QString text = randomText(way == 0 ? 1 : 1 + below(5));
                wanted.insert(at, text);
                QApplication::clipboard()->setText(text);
                way == 0 ? QTest::keyClicks(&edit, text) : edit.paste();
            } else if (at < before.size()) {
                const int length = 1 + below(before.size() - at);
                wanted.remove(at, length);
                edit.setSelection(at, length);
                edit.del();
            }
            const bool possible = rule(wanted) != QValidator::Invalid;
            refused += !possible;
            QCOMPARE(edit.text(), possible ? wanted : before);
            QCOMPARE(edit.hasAcceptableInput(), rule(edit.text()) == QValidator::Acceptable);
        }
        QVERIFY(refused > 500 && refused < 5500);
    }

    void conversion()
    {
        const std::pair<const char *, quint32> table[] = {{"192.168.1.5", 0xC0A80105},
                                                          {"255.255.255.255", 0xFFFFFFFF},
                                                          {"", 0},
                                                          {"1.2.3", 66051},
                                                          {"1.2.3.4.5", 0x02030405},
                                                          {"1.2.4.257", 0x01020501},
                                                          {"a.-1..7", 0x07},
                                                          {" 1.2 . 3.4", 0x01020304}};
        for (const auto &[text, address] : table)
            QCOMPARE(IP4Validator::getIp(QString::fromLatin1(text)), address);
        QCOMPARE(IP4Validator::getIpStr(0xFF000A80), QStringLiteral("255.0.10.128"));
        for (int i = 0; i < 1000; ++i) {
            const quint32 address = random();
            QCOMPARE(IP4Validator::getIp(IP4Validator::getIpStr(address)), address);
        }
    }
};

MOX_TEST_MAIN(TestIp4Validator)
#include "tst_ip4validator.moc"

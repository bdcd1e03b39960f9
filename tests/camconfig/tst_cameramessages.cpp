#include "fakefeatures.h"
#include "messagebox.h"
#include "moxcamconfigmapper.h"
#include "testmain.h"

#include <QCryptographicHash>
#include <QPointer>
#include <QPushButton>

using MoxGui::MoxCamConfigMapper;
using MoxTest::boxText;

class TestCameraMessages : public QObject
{
    Q_OBJECT

    static QString messageOf(int code, MoxTest::FakeInt &param)
    {
        return boxText([&] { MoxCamConfigMapper::showErrorMessage(code, nullptr, &param); });
    }

private Q_SLOTS:
    void description()
    {
        MoxTest::FakeInt param;
        param.name = "Ä%2b"; // takes the description
        for (int code : {INT_MAX, 1, -1, -1000, -1023, -40000, -40008, -40050, -40052, -40100, -40102, -40120, -40122,
                         -40199, -40208, INT_MIN})
            QCOMPARE(messageOf(code, param).toUtf8(),
                     "Error while working with 'ÄUnknown codeb' parameter!\r\nDescription: Unknown code");
        param.name.clear();
        QCOMPARE(
            messageOf(-1011, param).toUtf8(),
            "Error while working with '' parameter!\r\nDescription: GenTL: An operation\uFFFDs timeout time expired "
            "before it could be completed.");
        QCOMPARE(messageOf(MoxCamError::Success, param), QString());
    }

    /** Every text of the table, byte by byte: the hash of all lines made of a code and its text, from a source of its own. */
    void wholeTable()
    {
        MoxTest::FakeInt param;
        QByteArray lines;
        for (const auto &block : {qMakePair(-1001, 22), qMakePair(-40001, 7), qMakePair(-40051, 1),
                                  qMakePair(-40101, 1), qMakePair(-40121, 1), qMakePair(-40200, 8)}) {
            for (int code = block.first; code > block.first - block.second; --code) {
                const QString text = messageOf(code, param);
                lines += QByteArray::number(code) + text.mid(text.indexOf(QLatin1String(": ")) + 2).toUtf8() + '\n';
            }
        }
        QCOMPARE(lines.size(), 2837);
        QCOMPARE(QCryptographicHash::hash(lines, QCryptographicHash::Sha1).toHex(),
                 QByteArray("ea733cff1b68e6a49596f80babe642d5d992c8f6"));
    }

    /** A plain modal box with one button over its parent, which may go while it is open, and the parameter with it. */
    void box()
    {
        const QPointer<QWidget> parent = new QWidget;
        auto param = std::make_unique<MoxTest::FakeInt>();
        QPointer<QMessageBox> shown;
        boxText([&] { MoxCamConfigMapper::showErrorMessage(-40006, parent, param.get()); },
                [&](QMessageBox *box) {
                    QCOMPARE(box->parentWidget(), parent.data());
                    QCOMPARE(box->icon(), QMessageBox::Critical);
                    QCOMPARE(box->windowTitle(), QString());
                    QCOMPARE(box->standardButtons(), QMessageBox::Ok);
                    shown = box;
                    parent->setEnabled(false);
                    QVERIFY(box->isEnabled() && box->button(QMessageBox::Ok)->isEnabled());
                    param.reset();
                    delete parent;
                });
        QVERIFY(!parent);
        QVERIFY(!shown);
    }
};

MOX_TEST_MAIN(TestCameraMessages)
#include "tst_cameramessages.moc"

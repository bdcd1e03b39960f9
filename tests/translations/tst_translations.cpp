// The files of the translators, and every window in each language.

#include "datarow.h"
#include "everywindow.h"
#include "testmain.h"

#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTranslator>
#include <QXmlStreamReader>

using namespace MoxTest;

namespace {

struct Message
{
    QString source, translation, state;
    bool isKept; // the translator is told to leave it as it stands
};

std::vector<Message> messagesOf(const QString &path)
{
    std::vector<Message> messages;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return messages;
    for (QXmlStreamReader xml(&file); !xml.atEnd();) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("message")) {
            messages.emplace_back();
        } else if (xml.name() == QLatin1String("source")) {
            messages.back().source = xml.readElementText();
        } else if (xml.name() == QLatin1String("extracomment")) {
            messages.back().isKept = xml.readElementText() == QLatin1String("As it stands in every language.");
        } else if (xml.name() == QLatin1String("translation")) {
            messages.back().state = xml.attributes().value(QLatin1String("type")).toString();
            messages.back().translation = xml.readElementText();
        }
    }
    return messages;
}

/** What a translation must have in common with its source: arguments, markup, line breaks, and how it begins and ends. */
QStringList shapeOf(const QString &text)
{
    QStringList shape{text.contains(QRegularExpression(QStringLiteral("&\\w"))) ? QStringLiteral("&") : QString()};
    auto parts = QRegularExpression(QStringLiteral("%\\d|</?\\w+>|\\n|\\s+$|:\\s*$")).globalMatch(text);
    while (parts.hasNext())
        shape << parts.next().captured();
    return shape;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** Whether the widget has the room that its caption asks for. */
bool isClipped(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget))
        return !label->text().isEmpty()
            && (label->width() < label->sizeHint().width() || label->height() < label->sizeHint().height());
    if (const auto *button = qobject_cast<const QPushButton *>(&widget)) {
        // Some are narrower than their hint on purpose.
        QStyleOptionButton option;
        option.initFrom(button);
        const int room = button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button).width();
        const int icon = button->icon().isNull() ? 0 : button->iconSize().width() + 4;
        return room < button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width() + icon;
    }
    if (qobject_cast<const QLineEdit *>(widget.parentWidget()))
        return false; // the buttons of its actions
    if (qobject_cast<const QAbstractButton *>(&widget) || qobject_cast<const QTabBar *>(&widget))
        return widget.width() < widget.sizeHint().width();
    if (const auto *box = qobject_cast<const QGroupBox *>(&widget))
        return box->width() < box->minimumSizeHint().width();
    if (const auto *edit = qobject_cast<const QLineEdit *>(&widget))
        return !edit->placeholderText().isEmpty()
            && edit->width() < edit->fontMetrics().horizontalAdvance(edit->placeholderText()) + edit->height();
    return false;
}

/** What a window says, in its trees and value controls too, and behind a > in its menus. */
QStringList textsOf(const QWidget &window)
{
    QStringList texts;
    const auto objects = window.findChildren<QObject *>();
    for (const QObject *object : objects) {
        for (const char *property : {"text", "plainText"})
            texts << QLatin1String(object->inherits("QAction") ? ">" : "") + object->property(property).toString();
        if (const auto *tree = qobject_cast<const QTreeView *>(object))
            texts << (tree->model() ? tree->model()->index(0, 0).data().toString() : QString());
    }
    return texts;
}

} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_windows = std::make_unique<EveryWindow>(); }
    void cleanupTestCase() { m_windows.reset(); }
    void isUpToDate_data() { languages(); }

    /** Captions in the sources without a message, and messages without a caption. */
    void isUpToDate()
    {
        QFETCH(QString, language);
        const QTemporaryDir directory;
        const QString copy = directory.filePath(QFileInfo(source(language)).fileName());
        QVERIFY(QFile::copy(source(language), copy));
        QProcess update;
        update.setWorkingDirectory(QStringLiteral(MOX_SOURCE));
        update.start(QStringLiteral(MOX_LUPDATE),
                     QStringLiteral(MOX_LUPDATE_ARGUMENTS).split(QLatin1Char(' ')) << copy);
        QVERIFY(update.waitForFinished());
        QCOMPARE(update.exitCode(), 0);
        QCOMPARE(QString::fromUtf8(update.readAllStandardError()), QString());
        QVERIFY2(contentOf(copy) == contentOf(source(language)), "./run translations changes the file");
    }

    void texts_data() { languages(); }

    void texts()
    {
        QFETCH(QString, language);
        const std::vector<Message> messages = messagesOf(source(language));
        QVERIFY(messages.size() > 200);
        for (const Message &message : messages) {
            const QByteArray text = message.source.toUtf8();
            QVERIFY2(message.state.isEmpty() && !message.translation.isEmpty(), text);
            QVERIFY2(!message.isKept || message.translation == message.source, text);
            QVERIFY2(shapeOf(message.translation) == shapeOf(message.source), text);
        }
    }

    void windows_data()
    {
        columns<QString, int>("language", "kind");
        const std::vector<WindowKind> kinds = m_windows->kinds();
        for (const char *language : {"en", "de", "zh_CN"}) {
            for (std::size_t i = 0; i < kinds.size(); ++i)
                row((language + QByteArray(", ") + kinds[i].name).constData(), QString::fromLatin1(language), int(i));
        }
    }

    void windows()
    {
        QFETCH(QString, language);
        QFETCH(int, kind);
        QTranslator translator;
        if (language != QLatin1String("en")) {
            QVERIFY(translator.load(QLocale(language), QStringLiteral("moxcameraguiapi"), QStringLiteral("_"),
                                    QStringLiteral(MOX_COMPILED)));
            QCoreApplication::installTranslator(&translator);
        }
        const WindowKind window = m_windows->kinds()[std::size_t(kind)];
        const QString title = QCoreApplication::translate(window.context, window.title);
        QCOMPARE(title == QLatin1String(window.title), language == QLatin1String("en"));
        window.open([&](QWidget &shown) {
            QCOMPARE(shown.windowTitle(), title);
            QStringList mnemonics;
            const auto widgets = shown.findChildren<QWidget *>();
            for (const QWidget *widget : widgets) {
                if (!widget->isVisible() || widget->window() != &shown)
                    continue;
                const QString caption = widget->property("text").toString() + widget->property("title").toString();
                QVERIFY2(!isClipped(*widget), qPrintable(widget->objectName() + QLatin1Char(' ') + caption));
                const QString mnemonic = QKeySequence::mnemonic(caption).toString();
                QVERIFY2(mnemonic.isEmpty() || !mnemonics.contains(mnemonic), qPrintable(caption));
                mnemonics << mnemonic;
            }
        });
    }

    // What is made in code goes through translation as well, and what is the same in every language does not.
    void germanTexts()
    {
        const QMap<QString, const char *> expected{
            {QStringLiteral("selector"), ">IP-Adresse setzen|>Über IP-Adresse verbinden|Display name|Description"},
            {QStringLiteral("set ip"), "Incorrect IP address!"},
            {QStringLiteral("errors"), "Keine Fehler"},
            {QStringLiteral("pulse"), "Periode [μs]:|Start|Stopp"},
            {QStringLiteral("strobe"), "Verzögerung [μs]:"},
            {QStringLiteral("config"), "μs|Disconnected"},
            {QStringLiteral("action"), "0xFFFFFFFF"}};
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral(MOX_COMPILED "/moxcameraguiapi_de.qm")));
        QCoreApplication::installTranslator(&translator);
        for (const WindowKind &kind : m_windows->kinds()) {
            const QStringList texts =
                QString::fromUtf8(expected.value(QLatin1String(kind.name))).split(QLatin1Char('|'));
            kind.open([&](QWidget &window) {
                if (auto *dialog = qobject_cast<SetIpDialog *>(&window))
                    dialog->setIPAddress(1);
                QStringList shown = textsOf(window);
                auto *pulse = window.findChild<QAbstractButton *>(QStringLiteral("pushBtnPulseEnable"));
                for (int click = 0; pulse && click < 2; ++click) {
                    pulse->click();
                    shown << textsOf(window);
                }
                if (auto *config = qobject_cast<MoxGui::MoxCamConfig *>(&window))
                    config->SetDevice(nullptr);
                shown << textsOf(window);
                for (const QString &text : texts)
                    QVERIFY2(text.isEmpty() || shown.contains(text), qPrintable(text));
            });
        }
    }

private:
    static void languages()
    {
        columns<QString>("language");
        for (const char *language : {"de", "zh_CN"})
            row(language, QString::fromLatin1(language));
    }

    static QString source(const QString &language)
    {
        return QStringLiteral(MOX_SOURCE "/translations/moxcameraguiapi_%1.ts").arg(language);
    }

    std::unique_ptr<EveryWindow> m_windows;
};

MOX_TEST_MAIN(TestTranslations)
#include "tst_translations.moc"

#include "testmain.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>

namespace {

QDir root()
{
    return QDir(QStringLiteral(MOX_SOURCE_DIR));
}

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/** The absolute paths of what these folders hold by that pattern. */
QStringList filesIn(const QStringList &folders, const QString &pattern)
{
    QStringList files;
    for (const QString &folder : folders) {
        QDirIterator walk(root().filePath(folder), {pattern}, QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext())
            files << QDir::cleanPath(walk.next());
    }
    return files;
}

QStringList pages()
{
    QStringList all = filesIn({QStringLiteral("docs"), QStringLiteral("examples"), QStringLiteral("translations"),
                               QStringLiteral("fuzz"), QStringLiteral("tests"), QStringLiteral("benchmarks")},
                              QStringLiteral("*.md"));
    const QStringList atTheTop = root().entryList({QStringLiteral("*.md")}, QDir::Files);
    for (const QString &name : atTheTop)
        all << QDir::cleanPath(root().filePath(name));
    return all;
}

/** Where a page's links and pictures point within the repository: files, with anchors behind them. Code is no text. */
QStringList targetsOf(const QString &page)
{
    static const QRegularExpression code(QStringLiteral("^```.*?^```|`[^`\n]*`"),
                                         QRegularExpression::MultilineOption
                                             | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression link(QStringLiteral("\\]\\((?!https?:)([^)\\s#]*)(#[^)\\s]+)?\\)"));
    QStringList targets;
    const QString text = textOf(page).remove(code);
    for (auto match = link.globalMatch(text); match.hasNext();) {
        const auto found = match.next();
        const QString path = found.captured(1);
        QString file = path.isEmpty() ? page : QDir::cleanPath(QFileInfo(page).dir().filePath(path));
        if (QFileInfo(file).isDir()) // which shows its page
            file += QStringLiteral("/README.md");
        targets << file + found.captured(2);
    }
    return targets;
}

/** The names by which a page's headings are reached. */
QSet<QString> anchorsOf(const QString &page)
{
    static const QRegularExpression heading(QStringLiteral("^#+ (.+)$"), QRegularExpression::MultilineOption);
    static const QRegularExpression dropped(QStringLiteral("[^\\w\\- ]"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    QSet<QString> anchors;
    const QString text = textOf(page);
    for (auto match = heading.globalMatch(text); match.hasNext();)
        anchors << match.next().captured(1).toLower().remove(dropped).replace(QLatin1Char(' '), QLatin1Char('-'));
    return anchors;
}

} // namespace

class TestPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void links_data()
    {
        QTest::addColumn<QString>("page");
        const QStringList all = pages();
        for (const QString &page : all)
            QTest::newRow(qPrintable(root().relativeFilePath(page))) << page;
    }

    void links()
    {
        QFETCH(QString, page);
        const QStringList targets = targetsOf(page);
        for (const QString &target : targets) {
            const QString file = target.section(QLatin1Char('#'), 0, 0);
            const QString anchor = target.section(QLatin1Char('#'), 1);
            QVERIFY2(QFileInfo(file).isFile() && (anchor.isEmpty() || anchorsOf(file).contains(anchor)),
                     qPrintable(target));
        }
    }

    /** Pages and pictures, from the README over whatever many links. */
    void everythingIsReached()
    {
        QStringList reached{QDir::cleanPath(root().filePath(QStringLiteral("README.md")))};
        for (int i = 0; i < reached.size(); ++i) {
            const QStringList targets =
                reached.at(i).endsWith(QLatin1String(".md")) ? targetsOf(reached.at(i)) : QStringList();
            for (const QString &target : targets) {
                const QString file = target.section(QLatin1Char('#'), 0, 0);
                if (!reached.contains(file))
                    reached << file;
            }
        }
        const QStringList all = pages() + filesIn({QStringLiteral("docs/images")}, QStringLiteral("*.png"));
        for (const QString &file : all)
            QVERIFY2(reached.contains(file), qPrintable(root().relativeFilePath(file)));
    }
};

MOX_TEST_MAIN(TestPages)
#include "tst_pages.moc"

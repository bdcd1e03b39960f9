#include "testmain.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>

namespace {

QString sourceDir()
{
    return QDir::cleanPath(QStringLiteral(MOX_SOURCE_DIR));
}

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/** The absolute paths of what the repository holds by that pattern, in the folders that have pages. */
QStringList filesBy(const QString &pattern)
{
    QStringList files;
    const QDir root(sourceDir());
    const QStringList atTheTop = root.entryList({pattern}, QDir::Files);
    for (const QString &name : atTheTop)
        files << root.filePath(name);
    for (const char *folder : {"docs", "examples", "translations", "fuzz", "tests", "benchmarks"}) {
        QDirIterator walk(root.filePath(QLatin1String(folder)), {pattern}, QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext())
            files << walk.next();
    }
    return files;
}

QStringList pages()
{
    return filesBy(QStringLiteral("*.md"));
}

/** Where a page's links and pictures point, in its order. Code is no text. */
QStringList targetsOf(const QString &page)
{
    static const QRegularExpression code(QStringLiteral("^```.*?^```|`[^`\n]*`"),
                                         QRegularExpression::MultilineOption
                                             | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression link(QStringLiteral("\\]\\(([^)\\s]+)\\)"));
    QStringList targets;
    const QString text = textOf(page).remove(code);
    for (auto match = link.globalMatch(text); match.hasNext();)
        targets << match.next().captured(1);
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

bool isElsewhere(const QString &target)
{
    return target.startsWith(QLatin1String("http:")) || target.startsWith(QLatin1String("https:"));
}

/** The file that a target means; a folder means the page that shows itself there. */
QString fileOf(const QString &page, const QString &target)
{
    const QString path = target.section(QLatin1Char('#'), 0, 0);
    const QString file = path.isEmpty() ? page : QDir::cleanPath(QFileInfo(page).dir().filePath(path));
    return QFileInfo(file).isDir() ? QDir(file).filePath(QStringLiteral("README.md")) : file;
}

} // namespace

class TestPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void links_data();
    void links();
    void everyPictureIsShown();
    void everyPageIsReached();
};

void TestPages::links_data()
{
    QTest::addColumn<QString>("page");
    const QStringList all = pages();
    for (const QString &page : all)
        QTest::newRow(qPrintable(QDir(sourceDir()).relativeFilePath(page))) << page;
}

void TestPages::links()
{
    QFETCH(QString, page);
    QStringList broken;
    const QStringList targets = targetsOf(page);
    for (const QString &target : targets) {
        if (isElsewhere(target))
            continue;
        const QString file = fileOf(page, target);
        const QString anchor = target.section(QLatin1Char('#'), 1);
        if (!QFileInfo(file).isFile() || (!anchor.isEmpty() && !anchorsOf(file).contains(anchor)))
            broken << target;
    }
    QCOMPARE(broken.join(QLatin1Char(' ')), QString());
}

void TestPages::everyPictureIsShown()
{
    QSet<QString> shown;
    const QStringList all = pages();
    for (const QString &page : all) {
        const QStringList targets = targetsOf(page);
        for (const QString &target : targets)
            shown << fileOf(page, target);
    }
    QStringList idle;
    const QStringList pictures = filesBy(QStringLiteral("*.png"));
    for (const QString &picture : pictures) {
        if (picture.startsWith(sourceDir() + QStringLiteral("/docs/images/")) && !shown.contains(picture))
            idle << QFileInfo(picture).fileName();
    }
    QCOMPARE(idle.join(QLatin1Char(' ')), QString());
}

/** From the README, over whatever many links. */
void TestPages::everyPageIsReached()
{
    const QString start = sourceDir() + QStringLiteral("/README.md");
    QSet<QString> reached{start};
    QStringList next{start};
    while (!next.isEmpty()) {
        const QString page = next.takeFirst();
        const QStringList targets = targetsOf(page);
        for (const QString &target : targets) {
            const QString file = isElsewhere(target) ? QString() : fileOf(page, target);
            if (file.endsWith(QLatin1String(".md")) && QFileInfo::exists(file) && !reached.contains(file)) {
                reached << file;
                next << file;
            }
        }
    }
    QStringList lost;
    const QStringList all = pages();
    for (const QString &page : all) {
        if (!reached.contains(page))
            lost << QDir(sourceDir()).relativeFilePath(page);
    }
    QCOMPARE(lost.join(QLatin1Char(' ')), QString());
}

MOX_TEST_MAIN(TestPages)
#include "tst_pages.moc"

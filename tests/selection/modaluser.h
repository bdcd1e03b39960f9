// A user in front of modal windows.
#ifndef MOX_MODALUSER_H
#define MOX_MODALUSER_H

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

namespace MoxTest {

/**
 * Answers the modal windows and menus that open one after the other, as long as it lives. An answer is
 * "field=text button", either part of it alone, "first" for a menu's first entry, or nothing to close the window without
 * a button; answers are parted by semicolons. It keeps what the windows said and leaves none open, whatever a comparison
 * in `before` finds.
 */
class ModalUser
{
public:
    explicit ModalUser(const QString &script) : answers(script.split(QLatin1Char(';'), Qt::SkipEmptyParts))
    {
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] { look(); });
        timer.start(0);
    }

    QStringList answers; // not given yet
    QStringList seen;
    std::function<void(QWidget *window)> before = [](QWidget *) {};

private:
    static QString wordsOf(QWidget *window)
    {
        if (const auto *menu = qobject_cast<QMenu *>(window))
            return menu->actions().first()->text();
        const auto *box = qobject_cast<QMessageBox *>(window);
        if (!box)
            return window->windowTitle();
        QStringList words{box->windowTitle(), box->text()};
        for (const auto button : {QMessageBox::Ok, QMessageBox::Ignore, QMessageBox::Cancel})
            if (box->standardButtons() & button)
                words << box->button(button)->text().remove(QLatin1Char('&'));
        return (box->icon() == QMessageBox::Critical ? QString() : QStringLiteral("not critical: "))
            + words.join(QLatin1Char('|'));
    }
    static void answer(QWidget *window, const QString &text)
    {
        if (text == QLatin1String("first")) {
            QTest::keyClick(window, Qt::Key_Down);
            return QTest::keyClick(window, Qt::Key_Return);
        }
        const QStringList parts = text.split(QLatin1Char(' '));
        for (const QString &part : parts) {
            if (part.contains(QLatin1Char('='))) {
                auto *edit =
                    window->findChild<QLineEdit *>(part.section(QLatin1Char('='), 0, 0) + QStringLiteral("LineEdit"));
                edit->selectAll();
                QTest::keyClicks(edit, part.section(QLatin1Char('='), 1));
                continue;
            }
            const auto buttons = window->findChildren<QPushButton *>();
            for (QPushButton *button : buttons) {
                if (button->text().remove(QLatin1Char('&')) == part)
                    return button->click();
            }
        }
        if (auto *dialog = qobject_cast<QDialog *>(window))
            dialog->done(QDialog::Rejected);
        else
            window->close();
    }
    void look()
    {
        const QPointer<QWidget> window =
            QApplication::activePopupWidget() ? QApplication::activePopupWidget() : QApplication::activeModalWidget();
        if (!window || !window->isVisible() || window->inherits("MoxGui::MoxCameraSelectorDialog"))
            return;
        timer.stop(); // `before` may let events in
        seen << wordsOf(window);
        before(window);
        timer.start(); // an answer may open the next window
        if (window)
            answer(window, answers.isEmpty() ? QString() : answers.takeFirst());
    }

    QTimer timer;
};

} // namespace MoxTest

#endif

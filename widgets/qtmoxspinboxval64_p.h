#ifndef MOX_QTMOXSPINBOXVAL64_P_H
#define MOX_QTMOXSPINBOXVAL64_P_H

#include "int64validator.h"

#include <QObject>
#include <QSize>
#include <QString>

class QtMoxSpinBoxVal64;

/**
 * What stands behind the 64-bit spin box: its settings, and the two ways in which a number becomes its value.
 *
 * Owned by the spin box, GUI thread only. Except between a press and its release with buttonTracking off, pendingValue
 * equals value.
 */
class QtMoxSpinBoxVal64Private
{
public:
    class EventAnalyzer;

    explicit QtMoxSpinBoxVal64Private(QtMoxSpinBoxVal64 *q);
    Q_DISABLE_COPY(QtMoxSpinBoxVal64Private)

    /** Connects the line edit, which shows the value from here on. Called once, when the spin box holds this object. */
    void init();

    /** Commits a number. One outside the range is dropped, and the text stays as it is. */
    void setValue(qlonglong number);
    /** Commits what the user typed, or with @p discard throws it away; on bad text the value is shown again. */
    void setValue(const QString &text, bool discard);
    /** Moves value, or pendingValue alone while a step is held and buttonTracking is off. */
    void stepBy(int steps);

    /** The number part of a text, by length alone: the text is not compared with prefix and suffix. */
    QString cutNumber(const QString &text) const;
    /** The digits of a number as shown, without prefix and suffix. */
    QString digits(qlonglong number) const;
    /** The text on show for a number. */
    QString displayText(qlonglong number) const;
    /** The size that fits both ends of the range around a line edit of the given height. */
    QSize sizeForHeight(int height) const;

    /** Selects what stands between prefix and suffix, from the back, so that the cursor ends up in front. */
    void selectDigits();
    /** Keeps the cursor between prefix and suffix. */
    void guardCursor(int oldPos, int newPos);
    /** Commits or drops what was typed and not yet committed, as ignoreFocusOut tells. */
    void resolveTyping();
    /** A step button or arrow key goes down. */
    void press();
    /** A step button or arrow key comes up. */
    void release();

    QString prefix;
    QString suffix;
    qlonglong minimum = 0;
    qlonglong maximum = 99;
    qlonglong singleStep = 1;
    qlonglong value = 0;
    qlonglong pendingValue = 0; // under a held step button or arrow key
    int displayIntegerBase = 10;
    bool selectWhenStepping = true;
    bool validateStepping = false;
    bool ignoreFocusOut = true;
    bool pressed = false; // a step button or arrow key is held
    bool dirty = false; // the user edited the text since the last commit or revert
    bool buttonTracking = true;
    Int64Validator validator{minimum, maximum};
    QSize cachedSizeHint; // not valid: to be computed
    QSize cachedMinimumSizeHint;
    QtMoxSpinBoxVal64 *const q_ptr;

private:
    void installEventAnalyzer();
};

#endif

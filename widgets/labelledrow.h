// A row of widgets with a label left of it and one above it.
#ifndef MOX_LABELLEDROW_H
#define MOX_LABELLEDROW_H

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

/**
 * A row of inner widgets with a label left of it and another above it, each made when its text is first set.
 *
 * The base of the value controls; to the meta-object system their base is QWidget. GUI thread only.
 */
class LabelledRow : public QWidget // clazy:exclude=missing-qobject-macro
{
    Q_DISABLE_COPY(LabelledRow)

public:
    /** The text of the left label; empty where there is none. */
    QString leftLabelText() const;
    /** Sets the text of the left label, which an empty text hides. The first call makes the label. */
    void setLeftLabelText(const QString &text);
    /**
     * Names the control and all of its parts for assistive tools. Without a name the parts take the left label's text.
     * Hides the base's function, which cannot be overridden: to be called on the control's own type.
     */
    void setAccessibleName(const QString &name);
    /** The text of the upper label; empty where there is none. */
    QString topLabelText() const;
    /** Sets the text of the upper label, which an empty text hides. The first call makes the label. */
    void setTopLabelText(const QString &text);

    /** The left label, owned by this widget; null until setLeftLabelText() is called. */
    QLabel *leftLabel() const { return labelLeft; }
    /** The upper label, owned by this widget; null until setTopLabelText() is called. */
    QLabel *topLabel() const { return labelUpper; }

protected:
    /** @p parent owns the widget and may be null. */
    explicit LabelledRow(QWidget *parent);

    /** The row that the inner widgets go into, behind the left label. */
    QHBoxLayout *row() const { return layoutH; }

private:
    void nameParts();

    QHBoxLayout *const layoutH;
    QVBoxLayout *const layoutV;
    QLabel *labelLeft = nullptr;
    QLabel *labelUpper = nullptr;
};

#endif

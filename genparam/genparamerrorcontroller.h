#ifndef MOX_GENPARAMERRORCONTROLLER_H
#define MOX_GENPARAMERRORCONTROLLER_H

#include <QString>

#include <map>

/**
 * What went wrong with which feature: one text for each way in which it failed.
 *
 * A plain value on the GUI thread. The parameter tree's model holds one, its view another.
 */
class GenParamErrorController
{
public:
    /** The id of a failed write. A failed read goes by its item role. */
    static constexpr int WriteErrorId = Qt::UserRole;

    /** Enters an error; false, and the first text stays, when that id is there already. */
    bool SetError(const QString &name, const QString &text, int id);
    /** Removes an error; false when there is none. */
    bool ClearError(const QString &name, int id);
    /** The text of the feature's error with the lowest id, or null. Valid until the next change. */
    const QString *FirstError(const QString &name) const;
    /** All errors, a line for each, by name and then by id. Empty when there are none. */
    QString GetErrorInfo() const;
    bool IsEmpty() const { return errors.empty(); }

private:
    std::map<QString, std::map<int, QString>> errors; // a name is here only while it has an error
};

#endif

#ifndef MOX_GENPARAMTREEMODEL_H
#define MOX_GENPARAMTREEMODEL_H

#include "genparamerrorcontroller.h"

#include <QAbstractItemModel>

#include <memory>

class GenParamTreeModelPrivate;

namespace GenApi_3_0 {
struct INode;
struct INodeMap;
struct IValue;
} // namespace GenApi_3_0

namespace GenICam_3_0 {
class GenericException;
class gcstring;
} // namespace GenICam_3_0

namespace MoxGenParam {
class Array;
}

/**
 * The features of a node map as a tree: names in column 0, values in column 1, categories as parents.
 *
 * The shape is that of the category "Root" and is built once; from then on only the content of value cells changes, each
 * told by a dataChanged() of that one cell when the node map calls back. Every data() reads through GenApi, nothing is
 * kept here but errors: a failed read or write is a text in the cell and an entry in the store, never a message. The roles
 * of genparamcontroldata.h give the node behind a row and an editor for it.
 *
 * Owned by its parent. Lives on the GUI thread; dataChanged() alone also comes from threads that write to the node map,
 * with the node map's lock held.
 */
class GenParamTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /** Shows the node map of @p params; empty when there is none. */
    explicit GenParamTreeModel(MoxGenParam::Array *params, QObject *parent = nullptr);
    /**
     * Shows @p nodeMap, which is not owned and must outlive the model; empty when it is null or has no category "Root".
     * Throws what the node map throws, GenICam_3_0::GenericException, while the tree is built.
     */
    explicit GenParamTreeModel(GenApi_3_0::INodeMap *nodeMap, QObject *parent = nullptr);
    ~GenParamTreeModel() override;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    using QObject::parent;
    /** Both columns of a row have the row's children. */
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /** Writes to the node; Qt::EditRole of column 1 only. A refusal by the node is kept as its write error. */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    /** The orientation does not matter. */
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /** A read or write of @p idx, which is this model's own index, failed in a way in which it had not failed before. */
    void errorAppeared(const QModelIndex &idx, const QString &paramName, const QString &strErr, int id) const;
    /** The same operation has succeeded again. */
    void errorDisappeared(const QModelIndex &idx, const QString &paramName, int id) const;

private:
    friend class GenParamTreeModelPrivate; // makes indexes

    QVariant nameData(const QModelIndex &index, GenApi_3_0::INode &node, const GenICam_3_0::gcstring &name,
                      int role) const;
    QVariant valueData(const QModelIndex &index, GenApi_3_0::IValue *value, GenApi_3_0::INode &node,
                       const GenICam_3_0::gcstring &name, int role) const;
    const QString *errorOf(const GenICam_3_0::gcstring &name) const;
    void keepError(const QModelIndex &index, const QString &name, const QString &text, int id) const;
    void dropError(const QModelIndex &index, const QString &name, int id) const;

    mutable GenParamErrorController errors; // reads enter theirs
    const std::unique_ptr<GenParamTreeModelPrivate> d; // goes first, and the callbacks with it
};

#endif

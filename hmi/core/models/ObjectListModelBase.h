#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QVector>

namespace Hmi::Core {

/**
 * A list of QObjects of one type for QML's views; C++ fills it through ObjectListModelT. Each property of the
 * type is a role of its name, besides "modelData", the object itself, through which a delegate also calls
 * methods. Writing a role writes the property.
 *
 * The list owns its objects: it becomes their parent and deletes them with itself. One that is deleted
 * elsewhere leaves the list at once; until then nobody may give it another parent. Main thread only.
 */
class Q_DECL_EXPORT ObjectListModelBase : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ getCount NOTIFY countChanged)

public:
    /** The role "modelData"; those of the properties follow in the order of their declaration. */
    static constexpr int ModelDataRole = Qt::UserRole;

    ~ObjectListModelBase() override;

    int getCount() const { return mObjects.size(); }
    /** Null for a row that does not exist. Stays the list's own. */
    Q_INVOKABLE QObject* get(int aRow) const;
    /** -1 for an object that is not in the list. */
    Q_INVOKABLE int indexOf(QObject* aObject) const;

    int rowCount(const QModelIndex& aParent = QModelIndex()) const override;
    QVariant data(const QModelIndex& aIndex, int aRole) const override;
    bool setData(const QModelIndex& aIndex, const QVariant& aValue, int aRole) override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

protected:
    /** The objects are of this type or derived from it. */
    ObjectListModelBase(const QMetaObject& aType, QObject* aParent);

    const QVector<QObject*>& objects() const { return mObjects; }
    bool insertObject(int aRow, QObject* aObject);
    QObject* takeObject(int aRow);
    bool moveObject(int aFrom, int aTo);
    void clearObjects();

private:
    class Watcher;

    QObject* objectAt(const QModelIndex& aIndex) const;
    /** The index of the property that the role shows; -1 for other roles. */
    int propertyOf(int aRole) const;
    void dropRow(int aRow);
    void onDestroyed(QObject* aObject);
    void onPropertyChanged(QObject* aObject, int aProperty);

    const QMetaObject& mType;
    QVector<QObject*> mObjects;
    QHash<QObject*, Watcher*> mWatchers;
};

} // namespace Hmi::Core

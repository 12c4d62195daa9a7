#include <hmi/core/models/ObjectListModelBase.h>

#include <QMetaProperty>
#include <utility>

namespace Hmi::Core {

/**
 * Receives the notify signals of one object. Each property has a slot of its own number, which no class
 * declares: the signals that a type has are only known while the program runs.
 */
class ObjectListModelBase::Watcher : public QObject
{
public:
    Watcher(ObjectListModelBase* aModel, QObject* aObject) : mModel(aModel), mObject(aObject)
    {
        const QMetaObject& type = aModel->mType;
        for (int property = 0; property < type.propertyCount(); ++property)
            if (type.property(property).hasNotifySignal())
                QMetaObject::connect(aObject, type.property(property).notifySignalIndex(), this,
                                     QObject::staticMetaObject.methodCount() + property);
    }

    int qt_metacall(QMetaObject::Call aCall, int aMethod, void** aArguments) override
    {
        const int property = QObject::qt_metacall(aCall, aMethod, aArguments);
        if (aCall == QMetaObject::InvokeMetaMethod && property >= 0)
            mModel->onPropertyChanged(mObject, property);
        return -1;
    }

private:
    ObjectListModelBase* const mModel;
    QObject* const mObject;
};

ObjectListModelBase::ObjectListModelBase(const QMetaObject& aType, QObject* aParent) :
    QAbstractListModel(aParent), mType(aType)
{}

ObjectListModelBase::~ObjectListModelBase() { qDeleteAll(mWatchers); }

QObject* ObjectListModelBase::get(int aRow) const { return mObjects.value(aRow); }

int ObjectListModelBase::indexOf(QObject* aObject) const { return mObjects.indexOf(aObject); }

int ObjectListModelBase::rowCount(const QModelIndex& aParent) const
{
    return aParent.isValid() ? 0 : mObjects.size();
}

QVariant ObjectListModelBase::data(const QModelIndex& aIndex, int aRole) const
{
    QObject* const object = objectAt(aIndex);
    if (!object)
        return QVariant();
    return aRole == ModelDataRole ? QVariant::fromValue(object)
                                  : mType.property(propertyOf(aRole)).read(object);
}

bool ObjectListModelBase::setData(const QModelIndex& aIndex, const QVariant& aValue, int aRole)
{
    QObject* const object = objectAt(aIndex);
    const QMetaProperty property = mType.property(propertyOf(aRole));
    if (!object || !property.write(object, aValue))
        return false;
    if (!property.hasNotifySignal())
        emit dataChanged(aIndex, aIndex, {aRole});
    return true;
}

QHash<int, QByteArray> ObjectListModelBase::roleNames() const
{
    QHash<int, QByteArray> names{{ModelDataRole, QByteArrayLiteral("modelData")}};
    for (int role = ModelDataRole + 1; propertyOf(role) >= 0; ++role)
        names.insert(role, mType.property(propertyOf(role)).name());
    return names;
}

bool ObjectListModelBase::insertObject(int aRow, QObject* aObject)
{
    if (!aObject || aRow < 0 || aRow > mObjects.size() || mWatchers.contains(aObject))
        return false;
    aObject->setParent(this);
    connect(aObject, &QObject::destroyed, this, &ObjectListModelBase::onDestroyed);
    beginInsertRows(QModelIndex(), aRow, aRow);
    mObjects.insert(aRow, aObject);
    mWatchers.insert(aObject, new Watcher(this, aObject));
    endInsertRows();
    emit countChanged();
    return true;
}

QObject* ObjectListModelBase::takeObject(int aRow)
{
    QObject* const object = get(aRow);
    if (!object)
        return nullptr;
    disconnect(object, &QObject::destroyed, this, &ObjectListModelBase::onDestroyed);
    delete mWatchers.take(object);
    dropRow(aRow);
    object->setParent(nullptr);
    return object;
}

void ObjectListModelBase::dropRow(int aRow)
{
    beginRemoveRows(QModelIndex(), aRow, aRow);
    mObjects.remove(aRow);
    endRemoveRows();
    emit countChanged();
}

bool ObjectListModelBase::moveObject(int aFrom, int aTo)
{
    if (!get(aFrom) || !get(aTo))
        return false;
    // Where the object goes is said by the row it comes to stand before.
    if (aFrom == aTo ||
        !beginMoveRows(QModelIndex(), aFrom, aFrom, QModelIndex(), aTo > aFrom ? aTo + 1 : aTo))
        return true;
    mObjects.move(aFrom, aTo);
    endMoveRows();
    return true;
}

void ObjectListModelBase::clearObjects()
{
    if (mObjects.isEmpty())
        return;
    beginResetModel();
    const QVector<QObject*> objects = std::exchange(mObjects, {});
    qDeleteAll(std::exchange(mWatchers, {}));
    for (QObject* object : objects) {
        disconnect(object, &QObject::destroyed, this, &ObjectListModelBase::onDestroyed);
        object->setParent(nullptr);
        object->deleteLater();
    }
    endResetModel();
    emit countChanged();
}

QObject* ObjectListModelBase::objectAt(const QModelIndex& aIndex) const
{
    return aIndex.isValid() ? get(aIndex.row()) : nullptr;
}

int ObjectListModelBase::propertyOf(int aRole) const
{
    const int property = aRole - ModelDataRole - 1 + QObject::staticMetaObject.propertyCount();
    return aRole > ModelDataRole && property < mType.propertyCount() ? property : -1;
}

void ObjectListModelBase::onDestroyed(QObject* aObject)
{
    const int row = indexOf(aObject);
    delete mWatchers.take(aObject);
    // Only a QObject is left of it, which whoever hears of the removal must not read.
    mObjects[row] = nullptr;
    dropRow(row);
}

void ObjectListModelBase::onPropertyChanged(QObject* aObject, int aProperty)
{
    const QModelIndex changed = index(indexOf(aObject));
    const int role = ModelDataRole + 1 + aProperty - QObject::staticMetaObject.propertyCount();
    emit dataChanged(changed, changed, {role});
}

} // namespace Hmi::Core

#pragma once

#include <type_traits>

#include <hmi/core/models/ObjectListModelBase.h>

namespace Hmi::Core {

/**
 * The list model of one type, named as a pointer: ObjectListModelT<Contact*>. A range-based for goes over the
 * objects, during which the list must not change.
 */
template <class T>
class ObjectListModelT : public ObjectListModelBase
{
    using Object = std::remove_pointer_t<T>;
    static_assert(std::is_pointer_v<T> && std::is_base_of_v<QObject, Object>, "name a pointer to a QObject");

public:
    class Iterator
    {
    public:
        explicit Iterator(QVector<QObject*>::const_iterator aPosition) : mPosition(aPosition) {}
        T operator*() const { return static_cast<T>(*mPosition); }
        Iterator& operator++()
        {
            ++mPosition;
            return *this;
        }
        bool operator!=(const Iterator& aOther) const { return mPosition != aOther.mPosition; }

    private:
        QVector<QObject*>::const_iterator mPosition;
    };

    explicit ObjectListModelT(QObject* aParent = nullptr) :
        ObjectListModelBase(Object::staticMetaObject, aParent)
    {}

    /** Null for a row that does not exist. */
    T at(int aRow) const { return static_cast<T>(get(aRow)); }
    Iterator begin() const { return Iterator(objects().constBegin()); }
    Iterator end() const { return Iterator(objects().constEnd()); }

    /** The first object for which the condition holds; null when there is none. */
    template <class Condition>
    T find(Condition aCondition) const
    {
        for (T object : *this)
            if (aCondition(object))
                return object;
        return nullptr;
    }

    /** As insert(), behind the others. */
    bool append(T aObject) { return insert(getCount(), aObject); }
    /**
     * False, with nothing changed and the object still the caller's, when it is null or in the list already,
     * or when the row is beyond the end.
     */
    bool insert(int aRow, T aObject) { return insertObject(aRow, aObject); }
    /** Makes the object the caller's, without parent. Null for a row that does not exist. */
    T take(int aRow) { return static_cast<T>(takeObject(aRow)); }
    /** The object is deleted when control returns to the event loop. False for a row that does not exist. */
    bool remove(int aRow)
    {
        T object = take(aRow);
        if (object)
            object->deleteLater();
        return object;
    }
    /** aTo is the row that the object has afterwards. False when either row does not exist. */
    bool move(int aFrom, int aTo) { return moveObject(aFrom, aTo); }
    /** As remove() of every row. */
    void clear() { clearObjects(); }
};

} // namespace Hmi::Core

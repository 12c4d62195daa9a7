#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace SignalService {

/**
 * A multi-map from path to proxies, in the order of their insertion, each once for a path. It may be changed
 * while it is walked, from nested event loops as well: who is removed is not visited any more, who is new is
 * visited from the next walk on. The proxies stay their owners'.
 */
template <class Proxy>
class ProxyTable
{
public:
    class Walk;

private:
    struct Entry
    {
        std::vector<Proxy*> proxies; ///< null: removed while it was walked
        Walk* walk = nullptr;        ///< the innermost
        bool hasGaps = false;
    };
    /** Stays where it is when others come and go; iterators do not. */
    using Node = std::pair<const std::string, Entry>;

public:
    /** False when it is there already. */
    bool insert(const std::string& aPath, Proxy& aProxy)
    {
        std::vector<Proxy*>& proxies = mEntries[aPath].proxies;
        if (std::find(proxies.begin(), proxies.end(), &aProxy) != proxies.end())
            return false;
        proxies.push_back(&aProxy);
        return true;
    }

    /** False when it is not there. */
    bool remove(const std::string& aPath, Proxy& aProxy)
    {
        const auto entry = mEntries.find(aPath);
        if (entry == mEntries.end())
            return false;
        std::vector<Proxy*>& proxies = entry->second.proxies;
        const auto found = std::find(proxies.begin(), proxies.end(), &aProxy);
        if (found == proxies.end())
            return false;
        *found = nullptr;
        tidyUp(entry);
        return true;
    }

    bool contains(const std::string& aPath) const
    {
        const auto entry = mEntries.find(aPath);
        return entry != mEntries.end() &&
               std::any_of(entry->second.proxies.begin(), entry->second.proxies.end(),
                           [](const Proxy* aProxy) { return aProxy != nullptr; });
    }

    std::vector<std::string> getPaths() const
    {
        std::vector<std::string> paths;
        paths.reserve(mEntries.size());
        for (const auto& entry : mEntries) {
            if (contains(entry.first))
                paths.push_back(entry.first);
        }
        return paths;
    }

    /**
     * A visit to the proxies that a path has when the walk is made. A walk that is made in a slot of another
     * one finishes that first, so that everyone is visited in the order of the walks. They live on the stack.
     */
    class Walk
    {
    public:
        /** The visit takes a proxy and stays its caller's. */
        template <class Visit>
        Walk(ProxyTable& aTable, const std::string& aPath, Visit& aVisit) :
            mTable(aTable), mVisit(std::ref(aVisit))
        {
            const auto found = aTable.mEntries.find(aPath);
            if (found == aTable.mEntries.end())
                return;
            mNode = &*found;
            mCount = mNode->second.proxies.size();
            mOuter = std::exchange(mNode->second.walk, this);
        }
        ~Walk()
        {
            if (!mNode)
                return;
            mNode->second.walk = mOuter;
            if (mNode->second.hasGaps)
                mTable.tidyUp(mTable.mEntries.find(mNode->first));
        }
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;

        void finish()
        {
            if (mOuter)
                mOuter->finish();
            while (mIndex < mCount) {
                if (Proxy* const proxy = mNode->second.proxies[mIndex++])
                    mVisit(*proxy);
            }
        }

    private:
        ProxyTable& mTable;
        const std::function<void(Proxy&)> mVisit;
        Node* mNode = nullptr;
        std::size_t mIndex = 0;
        std::size_t mCount = 0;
        Walk* mOuter = nullptr;
    };

    template <class Visit>
    void forEach(const std::string& aPath, Visit aVisit)
    {
        Walk(*this, aPath, aVisit).finish();
    }

private:
    void tidyUp(typename std::unordered_map<std::string, Entry>::iterator aEntry)
    {
        Entry& entry = aEntry->second;
        entry.hasGaps = entry.walk != nullptr;
        if (entry.hasGaps)
            return;
        std::vector<Proxy*>& proxies = entry.proxies;
        proxies.erase(std::remove(proxies.begin(), proxies.end(), nullptr), proxies.end());
        if (proxies.empty())
            mEntries.erase(aEntry);
    }

    std::unordered_map<std::string, Entry> mEntries;
};

} // namespace SignalService

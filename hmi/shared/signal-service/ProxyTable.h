#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>
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

    bool isEmpty() const { return mEntries.empty(); }

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
        for (const auto& entry : mEntries)
            paths.push_back(entry.first);
        return paths;
    }

    template <class Visit>
    void forEach(const std::string& aPath, Visit aVisit)
    {
        const auto found = mEntries.find(aPath);
        if (found == mEntries.end())
            return;
        // Stays where it is when others come and go; iterators do not.
        Entry& entry = found->second;
        ++entry.walks;
        const std::size_t count = entry.proxies.size();
        for (std::size_t index = 0; index < count; ++index) {
            if (Proxy* const proxy = entry.proxies[index])
                aVisit(*proxy);
        }
        --entry.walks;
        if (entry.hasGaps)
            tidyUp(mEntries.find(aPath));
    }

private:
    struct Entry
    {
        std::vector<Proxy*> proxies; ///< null: removed while it was walked
        int walks = 0;
        bool hasGaps = false;
    };

    void tidyUp(typename std::unordered_map<std::string, Entry>::iterator aEntry)
    {
        Entry& entry = aEntry->second;
        entry.hasGaps = entry.walks > 0;
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

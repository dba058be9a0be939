#ifndef ORV_XML_END_TAGS_H
#define ORV_XML_END_TAGS_H

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "OrvUnicode.h"

// Where each end tag of a text lies: for every "</" in it, the name up to the
// next '>' and the position of the "</". Built once, in one pass, so that
// finding an element's end tag costs a lookup instead of a scan of the rest
// of the text (which made deeply nested text quadratic).
class EndTags
{
public:
    explicit EndTags(const OrvUnicode& text)
    {
        const char16_t* const data = text.GetData();
        const unsigned int length = text.Length();
        unsigned int nextClose = 0;
        for (unsigned int i = 0; i + 1 < length; ++i)
        {
            if (data[i] != u'<' || data[i + 1] != u'/')
                continue;
            if (nextClose <= i + 1)
            {
                nextClose = i + 2;
                while (nextClose < length && data[nextClose] != u'>')
                    ++nextClose;
            }
            if (nextClose >= length)
                break;
            m_positions[std::u16string(data + i + 2, data + nextClose)].push_back(i);
        }
    }

    // The first "</name>" at or after `from`, like OrvUnicode::Search.
    bool Find(const OrvUnicode& name, unsigned int from, unsigned int& position) const
    {
        const auto found = m_positions.find(std::u16string(name.GetData(), name.GetData() + name.Length()));
        if (found == m_positions.end())
            return false;
        const auto at = std::lower_bound(found->second.begin(), found->second.end(), from);
        if (at == found->second.end())
            return false;
        position = *at;
        return true;
    }

private:
    std::unordered_map<std::u16string, std::vector<unsigned int>> m_positions;
};

#endif

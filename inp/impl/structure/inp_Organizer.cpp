#include "inp_Organizer.h"

#include <utility>
#include <vector>

#include "atr_String.h"
#include "inp_KeywordTable.h"
#include "inp_Utils.h"
#include "omi_Timer.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

namespace {

// A keyword that may still take suboptions, with the values it may take: the table's
// list, or for the top level after the first step only steps.
struct OpenKeyword {
    inp_Keyword keyword;
    const cow_1DArrayList<int>* allowed;
};

// A part, instance or assembly, and whether the deck is inside one now.
struct Block {
    inp_KeywordEnm opener;
    inp_KeywordEnm closer;
    bool inside;
};

void ReportMisplaced(const inp_KeywordTable& table, const inp_Keyword& keyword) {
    atr_translate text("The keyword is misplaced. It can be suboption for the following keyword(s)/level(s): %s");
    atr_SubstituteFormat(text, 1, table.KeywordEnum2String(table.ParentKeywords(keyword.keyword)));
    // At once, not through a pass's list: the user sees it ahead of what later passes
    // make of the gap it leaves.
    thr_ThreadSingleton<wip_WIP>::Instance().Error(inp_Utils::MessageInKeyword(keyword, text.Result()), wip_Error);
}

// Output requests may be written anywhere behind their *OUTPUT or *FILE OUTPUT in the
// same step, with other history data between, so they are collected before the
// request itself is placed; what stands between stays where it is.
void GatherRequests(inp_Keyword& request, int at, const cow_1DArrayList<inp_Keyword>& keywords,
                    std::vector<unsigned char>& consumed, const cow_1DArrayList<int>& requestKinds) {
    for (int j = at + 1; j < keywords.Count(); ++j) {
        const inp_Keyword& next = keywords.ConstGet(j);
        if (next.keyword == request.keyword || next.keyword == inp_kwEndStep) return;
        if (requestKinds.IsMember(next.keyword)) {
            request.suboptions.Append(next);
            consumed[static_cast<size_t>(j)] = 1;
        }
    }
}

void SetParents(cow_1DArrayList<inp_Keyword>& keywords, inp_KeywordEnm owner) {
    for (int i = 0; i < keywords.Count(); ++i) {
        inp_Keyword& k = keywords.Get(i);
        k.parent = owner;
        if (!k.suboptions.IsEmpty()) SetParents(k.suboptions, k.keyword);
    }
}

}  // namespace

inp_Organizer::inp_Organizer(cow_1DArrayList<inp_Keyword> keywords) : m_keywords(std::move(keywords)) {}

cow_1DArrayList<inp_Keyword> inp_Organizer::Organize() {
    omi_Timer timer;
    inp_Utils::StartTiming(timer);
    const inp_KeywordTable& table = thr_ThreadSingleton<inp_KeywordTable>::Instance();

    cow_1DArrayList<int> stepsOnly;
    stepsOnly.Append(inp_kwStep);
    stepsOnly.Append(inp_kwEndStep);
    Block blocks[] = {{inp_kwPart, inp_kwEndPart, false},
                      {inp_kwInstance, inp_kwEndInstance, false},
                      {inp_kwAssembly, inp_kwEndAssembly, false}};
    bool stepSeen = false;
    bool seriousErrors = false;

    // The root at the front, the innermost open keyword at the back. The root is blank;
    // its suboptions become the result.
    std::vector<OpenKeyword> open;
    open.push_back({inp_Keyword(), &table.Suboptions(inp_kwModel)});

    const int count = m_keywords.Count();
    std::vector<unsigned char> consumed(static_cast<size_t>(count), 0);
    for (int i = 0; i < count; ++i) {
        if (consumed[static_cast<size_t>(i)]) continue;
        consumed[static_cast<size_t>(i)] = 1;
        inp_Keyword k = m_keywords.ConstGet(i);
        // A keyword that a pass removed has no place; the deck drops the gap.
        if (k.keyword == inp_kwUndefined) continue;
        if (k.keyword == inp_kwOutput || k.keyword == inp_kwFileOutput)
            GatherRequests(k, i, m_keywords, consumed, table.Suboptions(k.keyword));

        for (;;) {
            if (open.back().allowed->IsMember(k.keyword)) {
                OpenKeyword& top = open.back();
                if (k.keyword == inp_kwStep && !stepSeen) {
                    stepSeen = true;
                    top.allowed = &stepsOnly;
                }
                bool misplacedCloser = false;
                for (Block& b : blocks) {
                    if (k.keyword == b.opener) b.inside = true;
                    if (k.keyword != b.closer) continue;
                    const bool wasInside = b.inside;
                    b.inside = false;
                    // The block was closed on the way here, so it must be what the level
                    // took last; anything else means a closing keyword without opener.
                    if (!wasInside)
                        misplacedCloser = top.keyword.suboptions.IsEmpty() ||
                                          top.keyword.suboptions.Last().keyword != b.opener;
                }
                if (misplacedCloser) {
                    ReportMisplaced(table, k);  // and dropped
                } else {
                    // A closing keyword takes nothing, so the next keyword pops it and it
                    // ends up beside the block it closes.
                    const cow_1DArrayList<int>* allowed = &table.Suboptions(k.keyword);
                    open.push_back({std::move(k), allowed});
                }
                break;
            }

            OpenKeyword closing = std::move(open.back());
            open.pop_back();
            bool misplaced = open.empty();  // the root itself cannot hold it
            for (Block& b : blocks) {
                if (!b.inside || closing.keyword.keyword != b.opener) continue;
                misplaced = k.keyword != b.closer;
                if (!misplaced) b.inside = false;
                break;
            }
            if (misplaced) {
                ReportMisplaced(table, k);
                seriousErrors = true;
                // The keyword is dropped with its data; the block, or the root, stays open.
                open.push_back(std::move(closing));
                break;
            }
            open.back().keyword.suboptions.Append(closing.keyword);
        }
    }

    while (open.size() > 1) {
        OpenKeyword closing = std::move(open.back());
        open.pop_back();
        open.back().keyword.suboptions.Append(closing.keyword);
    }
    m_keywords = open.front().keyword.suboptions;
    open.clear();  // the result's lists are then held once, and setting parents copies nothing
    SetParents(m_keywords, inp_kwUndefined);

    if (seriousErrors)
        thr_ThreadSingleton<wip_WIP>::Instance().Error(
            atr_raw("Serious errors were detected in the input file or parts/assembly structure."), wip_Fatal);
    timer.Stop();
    inp_Utils::TimingLine(__FILE__, __LINE__, "Organizer - Elapsed time: ", timer);
    return m_keywords;
}

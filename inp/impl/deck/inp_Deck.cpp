#include "inp_Deck.h"

#include "inp_Parser.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

void inp_Deck::Parse(cow_String name) {
    fileName = name;
    inp_Parser parser(name, includeDirectory, cow_1DArrayList<cow_String>(), cow_String(), true);
    keywords = parser.Parse(true);

    // Fatal first: a driver that stops at the first error shows the one that matters.
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    if (!parser.FatalErrors().IsEmpty()) sink.ErrorList(parser.FatalErrors(), wip_Fatal);
    if (!parser.Errors().IsEmpty()) sink.ErrorList(parser.Errors(), wip_Error);
}

void inp_Deck::RemoveEmptyKeywords() {
    int blanks = 0;
    for (int i = 0; i < keywords.Count(); ++i)
        if (keywords[i].keyword == inp_kwUndefined) ++blanks;
    if (blanks == 0) return;
    // One pass of handle copies: removing in place would move the tail once per blank.
    cow_1DArrayList<inp_Keyword> kept(keywords.Count() - blanks);
    for (int i = 0; i < keywords.Count(); ++i)
        if (keywords[i].keyword != inp_kwUndefined) kept.Append(keywords[i]);
    keywords = kept;
}

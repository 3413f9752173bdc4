// deck_counts: a program of one's own on the deck library. It reads the deck named on
// its command line and prints what the model holds, and how many messages the deck
// gave (inpdeck shows the messages themselves).
#include <cstdio>
#include <string>

#include <inp/inp.h>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: deck_counts DECK\n");
        return 2;
    }
    int users = 0;
    inp_initialize(users);
    const wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    int status = 0;
    {
        inp_Deck deck;
        // The reader looks for include files in the current directory, then here.
        const std::string path = argv[1];
        if (path.rfind('/') != std::string::npos) deck.includeDirectory = path.substr(0, path.rfind('/')).c_str();
        try {
            // Classify reads the model; a fatal error leaves nothing for the next phase.
            deck.Parse(path.c_str());
            if (sink.ErrorCount(wip_Fatal) == 0) deck.ExpandKeywords();
            if (sink.ErrorCount(wip_Fatal) == 0) deck.Classify(true);
        } catch (const nex_Exception& e) {
            std::fprintf(stderr, "deck_counts: %s\n", e.UserReport().c_str());
            status = 1;
        }
        int elements = deck.assemblyElements.ConstGet().Count();
        const cow_List<cow_String> scopes = deck.assemblyElements.Instances();
        for (int i = 0; i < scopes.Count(); ++i) elements += deck.assemblyElements.ConstGet(scopes.ConstGet(i)).Count();
        std::printf("%s: %d instances, %d nodes, %d elements; %d errors, %d warnings\n", path.c_str(),
                    deck.instanceToPart.Instances().Count(), deck.assemblyCoordinates.Count(), elements,
                    sink.ErrorCount(), sink.WarningCount());
        if (sink.ErrorCount() > 0) status = 1;
    }
    inp_finalize(users);
    return status;
}

#include "workspace/core/RecoveryPrompt.h"

#include <cstdio>

namespace tessaro {

namespace {

class StreamRecoveryPrompt : public RecoveryPromptService
{
public:
    RecoveryChoice choose(const QVector<RecoveryOffer> &offers) override
    {
        RecoveryChoice choice;
        choice.action = RecoveryChoice::Recover;
        for (int i = 0; i < offers.size(); ++i) {
            std::fprintf(stderr, "Tessaro: recovering unsaved work: %s\n",
                         offers[i].caption.toLocal8Bit().constData());
            choice.selected.append(i);
        }
        std::fflush(stderr);
        return choice;
    }
};

StreamRecoveryPrompt g_streamPrompt;
RecoveryPromptService *g_prompt = &g_streamPrompt;

} // namespace

RecoveryChoice chooseRecovery(const QVector<RecoveryOffer> &offers)
{
    return g_prompt->choose(offers);
}

RecoveryPromptService *setRecoveryPromptService(RecoveryPromptService *service)
{
    RecoveryPromptService *previous = g_prompt;
    g_prompt = service ? service : &g_streamPrompt;
    return previous;
}

} // namespace tessaro

#include "MarkingService.hpp"

#include "dscp/ORX_ALGService.hpp"
#include "dscp/ORX_ALGServiceInstanceManager.hpp"

void fakes::releaseMarkingService()
{
    ORX_ALGServiceInstanceManager* const installed = ORX_ALGService::getInstanceManager();
    installed->startIteration();
    while (installed->hasNext())
        delete installed->next();
    installed->endIteration();
    ORX_ALGService::ClearInstanceManager();
    if (installed != ORX_ALGService::getInstanceManager())
        delete installed;
}

#include "system/VoiceMessaging.hpp"

#include "system/CommandExecution.hpp"

void startVoiceMail()
{
    invokeCommand("/kv/bin/processcontrol start voicemail");
}

void stopVoiceMail()
{
    invokeCommand("/kv/bin/processcontrol stop voicemail");
}

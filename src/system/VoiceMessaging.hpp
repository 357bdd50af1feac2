#ifndef KV_SYSTEM_VOICEMESSAGING_HPP
#define KV_SYSTEM_VOICEMESSAGING_HPP

/// Start and stop the server's voice-messaging service. They throw what invokeCommand throws.
void startVoiceMail();
void stopVoiceMail();

#endif

#ifndef KV_LANENDPOINT_ORX_LANENDPOINTINSTANCEMANAGER_HPP
#define KV_LANENDPOINT_ORX_LANENDPOINTINSTANCEMANAGER_HPP

/// Yields the numbers of the server's Ethernet interfaces, over and over. All enumerations share one cursor
/// without a lock: the object manager runs one enumeration of the class at a time. After an abandoned
/// enumeration the next one goes on where that stopped.
class ORX_LANEndpointInstanceManager
{
  public:
    /// Begins anew. Logs an error when the process id cannot be read; nothing else depends on it.
    void init();

    /// The next interface number, from 0. After the last one comes -1, then 0 again. Before init it is always
    /// -1.
    int next();

  private:
    int m_count = 0;
    int m_current = -1;
};

#endif

#ifndef KV_LANENDPOINT_ORX_LANENDPOINTINSTANCEMANAGER_HPP
#define KV_LANENDPOINT_ORX_LANENDPOINTINSTANCEMANAGER_HPP

/// Yields the numbers of the server's Ethernet interfaces, over and over. All enumerations share one
/// cursor without a lock: the object manager runs one enumeration of the class at a time. One that was
/// abandoned goes on where it stopped.
class ORX_LANEndpointInstanceManager
{
  public:
    /// Begins anew. Logs an error when the process id cannot be had; nothing else depends on it.
    void init();

    /// The next interface number, from 0, and -1 after the last one; then 0 again. Before init always -1.
    int next();

  private:
    int m_count = 0;
    int m_current = -1;
};

#endif

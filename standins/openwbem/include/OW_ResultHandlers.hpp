#ifndef OW_RESULT_HANDLERS_HPP_
#define OW_RESULT_HANDLERS_HPP_

#include "OW_ResultHandlerIFC.hpp"

namespace OpenWBEM
{

// Appends every result to an array of the caller.
class CIMObjectPathArrayBuilder : public CIMObjectPathResultHandlerIFC
{
  public:
    CIMObjectPathArrayBuilder(CIMObjectPathArray& array);
    virtual ~CIMObjectPathArrayBuilder();

  protected:
    virtual void doHandle(const CIMObjectPath& path);

  private:
    CIMObjectPathArray& m_array;
};

class CIMInstanceArrayBuilder : public CIMInstanceResultHandlerIFC
{
  public:
    CIMInstanceArrayBuilder(CIMInstanceArray& array);
    virtual ~CIMInstanceArrayBuilder();

  protected:
    virtual void doHandle(const CIMInstance& instance);

  private:
    CIMInstanceArray& m_array;
};

} // namespace OpenWBEM

#endif

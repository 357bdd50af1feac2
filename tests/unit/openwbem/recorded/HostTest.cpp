// What a host and a provider share: loggers, references, contexts and the provider bases.
#include "OW_Array.hpp"
#include "OW_CIMName.hpp"
#include "OW_CppInstanceProviderIFC.hpp"
#include "OW_CppMethodProviderIFC.hpp"
#include "OW_InstanceProviderInfo.hpp"
#include "OW_LogMessage.hpp"
#include "OW_Logger.hpp"
#include "OW_MethodProviderInfo.hpp"
#include "OW_OperationContext.hpp"
#include "OW_ProviderEnvironmentIFC.hpp"
#include "OW_RepositoryIFC.hpp"
#include "OW_ResultHandlers.hpp"
#include "OW_SharedLibraryReference.hpp"
#include "Recording.hpp"
#include "Samples.hpp"
#include <gtest/gtest.h>
#include <iterator>

using namespace recorded;
using namespace OpenWBEM::WBEMFlags;

namespace
{

const Excepted EXCEPTED[] = {
    {"nobody here uses them: the logging macros", "OW_LOG_ERROR", 1},
    {"nobody here uses it", "StringArrayBuilder", 1},
};

// Keeps all that reaches it.
class LineLogger : public Logger
{
  public:
    explicit LineLogger(ELogLevel level) : Logger("comp", level) {}
    LineLogger(ELogLevel level, bool) : Logger(level) {} // without a component

    mutable std::string lines;

  protected:
    void doProcessLogMessage(const LogMessage& m) const override
    {
        lines += "{" + shown(m.component) + "," + shown(m.category) + "," + shown(m.message) + "," +
                 shown(m.filename) + "," + shown(m.fileline) + "," + shown(m.methodname) + "}";
    }
    LoggerRef doClone() const override { return LoggerRef(new LineLogger(*this)); }
};

using LineLoggerRef = IntrusiveReference<LineLogger>;

// What a logger of this level writes when it is used so.
template <class Use>
std::string linesOf(ELogLevel level, Use use)
{
    const LineLoggerRef logger(new LineLogger(level));
    use(*logger);
    return logger->lines;
}

void checkCategory(Recording& recording, ELogLevel level, const std::string& name, const char* category)
{
    const std::string text = category;
    recording.check(name + ".logMessage(" + text + ",m)",
                    [&] { return linesOf(level, [&](Logger& l) { l.logMessage(category, "m"); }); });
    recording.check(name + ".logMessage(" + text + ",m,file...)", [&] {
        return linesOf(level, [&](Logger& l) { l.logMessage(category, "m", "file", 3, "method"); });
    });
    recording.check(name + ".logMessage(c," + text + ",m)",
                    [&] { return linesOf(level, [&](Logger& l) { l.logMessage("c", category, "m"); }); });
    recording.check(name + ".categoryIsEnabled(" + text + ")",
                    [&] { return LineLoggerRef(new LineLogger(level))->categoryIsEnabled(category); });
}

void checkLevel(Recording& recording, ELogLevel level)
{
    const std::string name = "Logger(" + shown(level) + ")";
    recording.check(name + " all", [&] {
        return linesOf(level, [](Logger& l) {
            l.logFatalError("a");
            l.logError("b");
            l.logInfo("c");
            l.logDebug("d");
        });
    });
    recording.check(name + " with place",
                    [&] { return linesOf(level, [](Logger& l) { l.logError("b", "file", 3, "method"); }); });
    recording.check(name + " empty", [&] {
        return linesOf(level, [](Logger& l) {
            l.logError("");
            l.logError(String());
        });
    });
    for (const char* const category :
         {"FATAL", "ERROR", "INFO", "DEBUG", "NONE", "ALL", "error", "other", ""}) {
        checkCategory(recording, level, name, category);
    }
    recording.check(name + ".logMessage(LogMessage)", [&] {
        return linesOf(level,
                       [](Logger& l) { l.logMessage(LogMessage("x", "y", "z", nullptr, 1, nullptr)); });
    });
    const LineLoggerRef logger(new LineLogger(level));
    recording.check(name + ".getLogLevel()", [&] { return logger->getLogLevel(); });
    recording.check(name + ".clone()", [&] {
        const LoggerRef copy = logger->clone();
        return shown(copy->getLogLevel()) + shown(copy.getPtr() == logger.getPtr());
    });
    recording.check(name + " level only", [&] {
        const LineLoggerRef nameless(new LineLogger(level, true));
        nameless->logFatalError("a");
        return nameless->lines;
    });
    recording.check(name + ".setLogLevel(E_INFO_LEVEL)", [&] {
        logger->setLogLevel(E_INFO_LEVEL);
        return logger->getLogLevel();
    });
}

void checkLoggers(Recording& recording)
{
    for (const ELogLevel level :
         {E_NONE_LEVEL, E_FATAL_ERROR_LEVEL, E_ERROR_LEVEL, E_INFO_LEVEL, E_DEBUG_LEVEL, E_ALL_LEVEL}) {
        checkLevel(recording, level);
    }
    for (const char* const name : {"info", "INFO", "Debug", "error", "fatal", "FATAL", "none", "all", "", "x",
                                   " info", "warning", "3"}) {
        recording.check("Logger.setLogLevel(" + std::string(name) + ")", [&] {
            const LineLoggerRef logger(new LineLogger(E_ERROR_LEVEL));
            logger->setLogLevel(name);
            return logger->getLogLevel();
        });
    }
    recording.check("Logger.setDefaultComponent", [] {
        const LineLoggerRef logger(new LineLogger(E_ALL_LEVEL));
        logger->setDefaultComponent("z");
        logger->logInfo("i");
        return logger->lines + shown(logger->getDefaultComponent());
    });
    recording.check("Logger::STR_ERROR_CATEGORY", [] { return Logger::STR_ERROR_CATEGORY; });
    recording.check("Logger::STR_ALL_CATEGORY", [] { return Logger::STR_ALL_CATEGORY; });
    recording.check("Logger::STR_DEFAULT_COMPONENT", [] { return Logger::STR_DEFAULT_COMPONENT; });
}

int alive = 0;

struct Counted : public IntrusiveCountableBase {
    Counted() { ++alive; }
    Counted(const Counted& other) : IntrusiveCountableBase(other) { ++alive; }
    ~Counted() override { --alive; }
};
struct Derived : public Counted {
};
struct Other : public Counted {
};

using CountedRef = IntrusiveReference<Counted>;
using DerivedRef = IntrusiveReference<Derived>;
using OtherRef = IntrusiveReference<Other>;

std::string truth(const CountedRef& reference)
{
    return shown(reference ? true : false);
}

void checkCounting(Recording& recording)
{
    recording.check("IntrusiveReference counts", [] {
        std::string numbers;
        {
            CountedRef a(new Counted);
            numbers += shown(alive);
            CountedRef b(a);
            a = b;
            b = nullptr;
            numbers += shown(alive);
        }
        return numbers + shown(alive);
    });
    recording.check("IntrusiveReference self assignment", [] {
        CountedRef a(new Counted);
        const CountedRef& same = a;
        a = same;
        return alive;
    });
    recording.check("IntrusiveReference without adding", [] {
        auto* const counted = new Counted;
        IntrusiveReferenceAddRef(counted);
        {
            const CountedRef a(counted, false);
        }
        return alive;
    });
    recording.check("count is not copied", [] {
        CountedRef a(new Counted);
        const CountedRef b(new Counted(*a));
        const std::string both = shown(alive);
        a = nullptr;
        return both + shown(alive);
    });
}

void checkReferences(Recording& recording)
{
    recording.check("IntrusiveReference from derived", [] {
        std::string answers;
        {
            const DerivedRef d(new Derived);
            CountedRef c(d);
            c = d;
            answers = shown(c == d) + shown(c.cast_to<Derived>() == d) +
                      shown(c.cast_to<Other>().getPtr() == nullptr);
        }
        return answers + shown(alive);
    });
    recording.check("IntrusiveReference truth", [] {
        const CountedRef null;
        return truth(null) + shown(!null) + truth(CountedRef(new Counted)) + shown(null.isNull());
    });
    recording.check("IntrusiveReference swap", [] {
        CountedRef null;
        CountedRef a(new Counted);
        null.swap(a);
        swap(null, a);
        return truth(null) + truth(a);
    });
    recording.check("IntrusiveReference compare", [] {
        const CountedRef a(new Counted);
        const CountedRef b(new Counted);
        Counted* const p = a.getPtr();
        return shown(a == b) + shown(a != b) + shown(a == p) + shown(p == a) + shown(a != p) +
               shown((a < b) == (a.getPtr() < b.getPtr()));
    });
    recording.check("IntrusiveReference casts", [] {
        const CountedRef c(new Derived);
        const DerivedRef d = static_pointer_cast<Derived>(c);
        const OtherRef o = dynamic_pointer_cast<Other>(c);
        const CountedRef e = const_pointer_cast<Counted>(c);
        return shown(d ? true : false) + shown(o ? true : false) + shown(e == c);
    });
    recording.check("IntrusiveReference null ->", [] { return CountedRef().operator->() == nullptr; });
}

std::string events; // what has gone, in that order

struct EventLibrary : public SharedLibrary {
    ~EventLibrary() override { events += "library gone;"; }
    bool doGetFunctionPointer(const String&, void**) const override { return false; }
};
struct EventObject : public IntrusiveCountableBase {
    ~EventObject() override { events += "object gone;"; }
};

using ObjectInLibrary = SharedLibraryReference<IntrusiveReference<EventObject>>;

ObjectInLibrary objectInLibrary()
{
    events.clear();
    return ObjectInLibrary(SharedLibraryRef(new EventLibrary), new EventObject);
}

std::string truth(const ObjectInLibrary& reference)
{
    return shown(reference ? true : false);
}

void checkLibraryReferences(Recording& recording)
{
    recording.check("SharedLibraryReference order", [] {
        objectInLibrary();
        return events;
    });
    recording.check("SharedLibraryReference setNull", [] {
        ObjectInLibrary r = objectInLibrary();
        r.setNull();
        return events + truth(r) + shown(!r);
    });
    recording.check("SharedLibraryReference assign", [] {
        ObjectInLibrary r = objectInLibrary();
        ObjectInLibrary s;
        s = r;
        r = s;
        s.setNull();
        return events + truth(r) + shown(r.operator->() != nullptr);
    });
    recording.check("SharedLibraryReference overwrite", [] {
        ObjectInLibrary r = objectInLibrary();
        r = ObjectInLibrary();
        return events;
    });
    recording.check("SharedLibraryReference get", [] { return objectInLibrary().get() ? true : false; });
    recording.check("SharedLibraryReference isNull", [] { return ObjectInLibrary().isNull(); });
    recording.check("SharedLibraryReference getLibRef",
                    [] { return objectInLibrary().getLibRef() ? true : false; });
}

void checkContexts(Recording& recording)
{
    const OperationContext::DataRef data(new OperationContext::Data);
    recording.check("OperationContext string", [] {
        OperationContext c;
        c.setStringData("k", "v");
        return shown(c.getStringData("k")) + shown(c.keyHasData("k")) + shown(c.keyHasData("K")) +
               shown(c.getStringDataWithDefault("z", "d")) + shown(c.getStringDataWithDefault("z"));
    });
    recording.check("OperationContext absent", [] { return OperationContext().getStringData("zz"); });
    recording.check("OperationContext overwrite", [] {
        OperationContext c;
        c.setStringData("k", "v");
        c.setStringData("k", "w");
        return c.getStringData("k");
    });
    recording.check("OperationContext remove", [] {
        OperationContext c;
        c.setStringData("k", "v");
        c.removeData("k");
        c.removeData("k");
        return c.keyHasData("k");
    });
    recording.check("OperationContext other data", [&] {
        OperationContext c;
        c.setData("k", data);
        return shown(c.keyHasData("k")) + shown(c.getData("k") ? true : false) +
               shown(c.getStringDataWithDefault("k", "d"));
    });
    recording.check("OperationContext other data as string", [&] {
        OperationContext c;
        c.setData("k", data);
        return c.getStringData("k");
    });
    recording.check("OperationContext absent data",
                    [] { return OperationContext().getData("k") ? true : false; });
    recording.check("OperationContext null data", [] {
        OperationContext c;
        c.setData("k", OperationContext::DataRef());
        return c.keyHasData("k");
    });
    recording.check("OperationContext::USER_NAME", [] { return OperationContext::USER_NAME; });
    recording.check("OperationContext::HTTP_PATH", [] { return OperationContext::HTTP_PATH; });
}

class TellingEnvironment : public ProviderEnvironmentIFC
{
  public:
    CIMOMHandleIFCRef getCIMOMHandle() const override { return CIMOMHandleIFCRef(); }
    CIMOMHandleIFCRef getRepositoryCIMOMHandle() const override { return CIMOMHandleIFCRef(); }
    RepositoryIFCRef getRepository() const override { return RepositoryIFCRef(); }
    LoggerRef getLogger() const override { return LoggerRef(); }
    LoggerRef getLogger(const String&) const override { return LoggerRef(); }
    String getConfigItem(const String& name, const String& def = "") const override
    {
        return name + ":" + def;
    }
    String getUserName() const override { return "me"; }
    OperationContext& getOperationContext() override { return m_context; }

  private:
    OperationContext m_context;
};

// Names two instances, and tells in each how it was asked for.
class TellingProvider : public CppMethodProviderIFC, public CppInstanceProviderIFC
{
  public:
    void enumInstanceNames(const ProviderEnvironmentIFCRef&, const String& ns, const String& className,
                           CIMObjectPathResultHandlerIFC& result, const CIMClass&) override
    {
        for (const char* const key : {"1", "2"}) {
            result.handle(CIMObjectPath(className, ns).setKeyValue("k", CIMValue(key)));
        }
    }
    CIMInstance getInstance(const ProviderEnvironmentIFCRef&, const String& ns, const CIMObjectPath& path,
                            ELocalOnlyFlag local, EIncludeQualifiersFlag qualifiers,
                            EIncludeClassOriginFlag origin, const StringArray* list,
                            const CIMClass& cimClass) override
    {
        const std::string flags = shown(local) + shown(qualifiers) + shown(origin);
        const String seen = ns + " " + path.toString() + " " + flags.c_str() + (list ? "list " : "null ") +
                            (cimClass ? cimClass.getName() : String("no class"));
        return CIMInstance(path.getClassName()).setProperty("seen", CIMValue(seen));
    }
    CIMObjectPath createInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMInstance&) override
    {
        return CIMObjectPath(CIMNULL);
    }
    void modifyInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMInstance&,
                        const CIMInstance&, EIncludeQualifiersFlag, const StringArray*,
                        const CIMClass&) override
    {
    }
    void deleteInstance(const ProviderEnvironmentIFCRef&, const String&, const CIMObjectPath&) override {}
    CIMValue invokeMethod(const ProviderEnvironmentIFCRef&, const String&, const CIMObjectPath&,
                          const String&, const CIMParamValueArray&, CIMParamValueArray&) override
    {
        return CIMValue(CIMNULL);
    }
};

using TellingProviderRef = IntrusiveReference<TellingProvider>;

class InstanceTexts : public CIMInstanceResultHandlerIFC
{
  public:
    std::string text;

  protected:
    void doHandle(const CIMInstance& instance) override { text += shown(instance); }
};

} // namespace

OW_PROVIDERFACTORY(TellingProvider, telling)

namespace
{

void checkProviderBases(Recording& recording)
{
    recording.check("getOWVersion", [] { return getOWVersion(); });
    recording.check("OW_VERSION", [] { return OW_VERSION; });
    recording.check("createProvider", [] {
        const IntrusiveReference<CppProviderBaseIFC> base(createProvidertelling());
        return shown(dynamic_cast<TellingProvider*>(base.getPtr()) != nullptr) +
               shown(base->getInstanceProvider() == dynamic_cast<CppInstanceProviderIFC*>(base.getPtr())) +
               shown(base->getMethodProvider() == dynamic_cast<CppMethodProviderIFC*>(base.getPtr()));
    });
    recording.check("provider defaults", [] {
        const IntrusiveReference<CppProviderBaseIFC> base(createProvidertelling());
        base->initialize(ProviderEnvironmentIFCRef());
        return shown(base->getSecondaryInstanceProvider() == nullptr) +
               shown(base->getAssociatorProvider() == nullptr) +
               shown(base->getIndicationExportProvider() == nullptr) +
               shown(base->getPolledProvider() == nullptr) + shown(base->getIndicationProvider() == nullptr) +
               shown(base->canUnload()) + shown(base->getPersist());
    });
    recording.check("provider base object", [] {
        const IntrusiveReference<CppProviderBaseIFC> base(new CppProviderBaseIFC);
        return shown(base->getInstanceProvider() == nullptr) + shown(base->getMethodProvider() == nullptr) +
               shown(base->canUnload());
    });
    recording.check("provider persist", [] {
        const TellingProviderRef provider(new TellingProvider);
        provider->setPersist();
        const std::string before = shown(provider->getPersist());
        provider->setPersist(false);
        return before + shown(provider->getPersist());
    });
    recording.check("provider access time", [] {
        const TellingProviderRef provider(new TellingProvider);
        const bool wasNever = provider->getLastAccessTime().get() == 0;
        provider->updateAccessTime();
        return shown(wasNever) + shown(provider->getLastAccessTime().get() > 1000000000);
    });
    recording.check("provider copy", [] {
        const TellingProviderRef provider(new TellingProvider);
        provider->setPersist();
        return TellingProviderRef(new TellingProvider(*provider))->getPersist();
    });
}

void checkEnumerations(Recording& recording)
{
    const TellingProviderRef provider(new TellingProvider);
    const ProviderEnvironmentIFCRef environment(new TellingEnvironment);
    const StringArray names(1, String("x"));
    for (const bool isListed : {false, true}) {
        recording.check(isListed ? "default enumInstances 1" : "default enumInstances 0", [&] {
            InstanceTexts result;
            provider->enumInstances(environment, "ns", "Sub", result, E_LOCAL_ONLY, E_SHALLOW,
                                    E_EXCLUDE_QUALIFIERS, E_INCLUDE_CLASS_ORIGIN, isListed ? &names : nullptr,
                                    CIMClass("Asked"), CIMClass("Sub"));
            return result.text;
        });
    }
    recording.check("default enumInstances null class", [&] {
        InstanceTexts result;
        provider->enumInstances(environment, "ns", "Sub", result, E_NOT_LOCAL_ONLY, E_DEEP,
                                E_INCLUDE_QUALIFIERS, E_EXCLUDE_CLASS_ORIGIN, nullptr, CIMClass(CIMNULL),
                                CIMClass(CIMNULL));
        return result.text;
    });
    recording.check("environment", [&] {
        return shown(environment->getConfigItem("a")) + shown(environment->getConfigItem("a", "b")) +
               shown(environment->getUserName()) + shown(environment->getCIMOMHandle() ? true : false);
    });
}

void checkInfos(Recording& recording)
{
    const StringArray nameSpaces(1, String("ns"));
    recording.check("provider infos", [] {
        const TellingProviderRef provider(new TellingProvider);
        InstanceProviderInfo instances;
        MethodProviderInfo methods;
        provider->getInstanceProviderInfo(instances);
        provider->getMethodProviderInfo(methods);
        return shown(instances.getClassInfo().size()) + shown(methods.getClassInfo().size()) +
               shown(instances.getProviderName()) + shown(methods.getProviderName());
    });
    recording.check("InstanceProviderInfo", [&] {
        InstanceProviderInfo info;
        info.addInstrumentedClass("A");
        info.addInstrumentedClass(InstClassInfo("B", nameSpaces));
        info.setProviderName("p");
        const auto classes = info.getClassInfo();
        return shown(classes.size()) + shown(classes[0].className) + shown(classes[0].namespaces) +
               shown(classes[1].namespaces) + shown(info.getProviderName());
    });
    recording.check("MethodProviderInfo", [&] {
        MethodProviderInfo info;
        info.addInstrumentedClass("A");
        info.addInstrumentedClass(
            MethodProviderInfo::ClassInfo("B", nameSpaces, StringArray(2, String("m"))));
        info.setProviderName("p");
        const auto classes = info.getClassInfo();
        return shown(classes.size()) + shown(classes[0].methods) + shown(classes[1].methods) +
               shown(classes[1].namespaces) + shown(info.getProviderName());
    });
}

void checkCollectorsAndFlags(Recording& recording)
{
    recording.check("CIMInstanceArrayBuilder", [] {
        CIMInstanceArray collected;
        CIMInstanceArrayBuilder builder(collected);
        CIMInstance instance("C");
        builder.handle(instance);
        builder.handle(instance.setProperty("x", CIMValue(1)));
        return collected;
    });
    recording.check("CIMInstanceArrayBuilder of null", [] {
        CIMInstanceArray collected;
        CIMInstanceArrayBuilder builder(collected);
        builder.handle(CIMInstance(CIMNULL));
        return collected;
    });
    recording.check("CIMObjectPathArrayBuilder", [] {
        CIMObjectPathArray collected;
        CIMObjectPathArrayBuilder builder(collected);
        CIMObjectPath path("C");
        builder.handle(path);
        builder.handle(path.setClassName("D"));
        return collected;
    });
    recording.check("WBEMFlags", [] {
        return int(E_SHALLOW) + 10 * int(E_DEEP) + 100 * int(E_NOT_LOCAL_ONLY) + 1000 * int(E_LOCAL_ONLY);
    });
    recording.check("WBEMFlags 2", [] {
        return int(E_EXCLUDE_QUALIFIERS) + 10 * int(E_INCLUDE_QUALIFIERS) +
               100 * int(E_EXCLUDE_CLASS_ORIGIN) + 1000 * int(E_INCLUDE_CLASS_ORIGIN);
    });
    recording.check("CIMNULL", [] { return int(CIMNULL); });
}

TEST(RecordedHost, answersAsTheOriginal)
{
    Recording recording("host", {std::begin(EXCEPTED), std::end(EXCEPTED)});
    checkLoggers(recording);
    checkCounting(recording);
    checkReferences(recording);
    checkLibraryReferences(recording);
    checkContexts(recording);
    checkProviderBases(recording);
    checkEnumerations(recording);
    checkInfos(recording);
    checkCollectorsAndFlags(recording);
    recording.expectComplete(329);
}

} // namespace

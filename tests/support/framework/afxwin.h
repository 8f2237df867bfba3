// Stands in for the application framework's header of this name, where the framework is not there: as much of
// it as the module object uses, and what its tests look at.
#pragma once

using BOOL = int;

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif

// The messages that a class handles: here always none, and all are left to the map of its base.
struct MESSAGE_MAP {
    const MESSAGE_MAP* base;
};

class CWinApp {
public:
    explicit CWinApp(const wchar_t* applicationName = L"given by nobody") : name(applicationName)
    {
        ++constructed;
    }
    virtual ~CWinApp() = default;
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    virtual BOOL InitInstance()
    {
        ++initialized;
        return initResult;
    }
    virtual const MESSAGE_MAP& GetMessageMap() const { return Map(); }
    static const MESSAGE_MAP& Map()
    {
        static constexpr MESSAGE_MAP map = {nullptr};
        return map;
    }

    static inline int constructed = 0;
    const wchar_t* name;
    int initialized = 0;
    BOOL initResult = TRUE;
};

#define DECLARE_MESSAGE_MAP()                                                                                \
protected:                                                                                                   \
    const MESSAGE_MAP& GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                               \
    const MESSAGE_MAP& theClass::GetMessageMap() const                                                       \
    {                                                                                                        \
        static const MESSAGE_MAP map = {&baseClass::Map()};

#define END_MESSAGE_MAP()                                                                                    \
    return map;                                                                                              \
    }

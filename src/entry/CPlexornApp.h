// The module object that the application framework expects of every library built on it.
#pragma once

#include <afxwin.h>

// Does no work of its own; the one instance lives as long as the library is loaded.
class CPlexornApp : public CWinApp {
public:
    CPlexornApp();

    BOOL InitInstance() override;

    DECLARE_MESSAGE_MAP()
};

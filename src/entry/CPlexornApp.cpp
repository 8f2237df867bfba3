#include "entry/CPlexornApp.h"

BEGIN_MESSAGE_MAP(CPlexornApp, CWinApp)
END_MESSAGE_MAP()

CPlexornApp::CPlexornApp() : CWinApp(nullptr) {}

BOOL CPlexornApp::InitInstance()
{
    CWinApp::InitInstance();
    return TRUE;
}

CPlexornApp theApp;

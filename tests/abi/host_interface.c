/* The interfaces as a host written in C sees them: every operation has the argument list that is promised. An
 * argument that moves, or changes its type, does not compile. */
#include "entry/dxfFileOpen.h"
#include "host/ReportKinds.h"
#include "svghost/SvgHost.h"

#include <assert.h>

typedef const wchar_t* Text;

bool (*openFile)(Text, QlmNode) = dxfFileOpen;

QlmNode (*createLine)(QlmNode, Text, float, float, float, float, float, float) = qlmCreateLine;
QlmNode (*createPath)(QlmNode, Text, Text, float, float) = qlmCreatePath;
QlmNode (*createCircle)(QlmNode, Text, float, float, float, float, float) = qlmCreateCircle;
QlmNode (*createEllipse)(QlmNode, Text, float, float, float, float, float, float) = qlmCreateEllipse;
QlmNode (*createPolyline)(QlmNode, Text, Text, float, float) = qlmCreatePolyline;
QlmNode (*createPolygon)(QlmNode, Text, Text, float, float) = qlmCreatePolygon;
QlmNode (*createText)(QlmNode, Text, float, float, float, float, Text, float, float) = qlmCreateText;
QlmNode (*createUse)(QlmNode, Text, float, float, Text, Text, float, float) = qlmCreateUse;
QlmNode (*createSymbol)(QlmNode, Text) = qlmCreateSymbol;
QlmNode (*createG)(QlmNode, Text) = qlmCreateG;
QlmNode (*getCurrent)(QlmNode) = qlmGetCurrentSvgNode;
void (*setCurrent)(QlmNode, QlmNode) = qlmSetCurrentSvgNode;
void (*setAttribute)(QlmNode, QlmNode, Text, Text) = qlmSetAttributeByNode;
int (*setLastError)(int, Text, int, Text, bool, intptr_t) = qlmSetLastError;

/* A kind is a plain number: the first is what a host looks for, the last what later versions add to. */
static_assert(DXF_ERROR_OPEN == 1 && DXF_ERROR_MEMORY == 12, "the kinds keep their numbers");

bool (*writePicture)(SvgHostDocument*, const SvgHostWriteOptions*, SvgHostWriteFunction,
                     void*) = svgHostWrite;

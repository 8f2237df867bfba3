// Hosts import on threads with little stack.
#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <pthread.h>

#include <string>

using namespace svghost_tests;

namespace {

struct Result {
    std::string text;
    bool good = false;
};

bool Append(void* user, const char* bytes, std::size_t size)
{
    static_cast<std::string*>(user)->append(bytes, size);
    return true;
}

// Everything that an import does, with a chain of symbols longer than the stack has bytes.
void* Import(void* user)
{
    Result& result = *static_cast<Result*>(user);
    SvgHostDocument* document = svgHostCreate();
    const QlmNode context = svgHostBeginImport(document);
    for (int i = 0; i < 100'000; ++i) {
        const QlmNode symbol = qlmCreateSymbol(context, (L"C" + std::to_wstring(i)).c_str());
        qlmSetCurrentSvgNode(context, symbol);
        const QlmNode path =
            qlmCreatePath(context, L"", L"M 0.5,0 A 10,10, 0 0,0 0.123456789012345678901,-10", 0, 0);
        qlmSetAttributeByNode(context, path, L"stroke", L"RGB(1,2,3)");
        qlmSetAttributeByNode(context, path, L"rotate", L"30.000000");
        qlmCreateText(context, L"", 1.5f, 1e-3f, 0, 0, L"text", 0, 0);
        qlmCreateUse(context, L"", 0, 0, (L"C" + std::to_wstring(i + 1)).c_str(), L"hmi", 1, 1);
        qlmSetCurrentSvgNode(context, nullptr);
    }
    qlmCreateUse(context, L"", 0, 0, L"C0", L"hmi", 1, 1);
    qlmSetLastError(0, L"DXF", 0, L"message", false, 0);
    result.good = svgHostWrite(document, nullptr, Append, &result.text);
    svgHostDestroy(document);
    return nullptr;
}

} // namespace

TEST(SmallStack, SixtyFourKibibytesAreEnough)
{
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 64 * 1024), 0);
    Result result;
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, Import, &result), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    EXPECT_TRUE(result.good);
    EXPECT_TRUE(ParsedSvg(result.text).First("use"));
}

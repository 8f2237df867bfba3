// A rival: reads a drawing with dxflib and counts what its callbacks get, with callbacks that keep every
// entity as plainly as a program would that wants to draw it.
#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>

#include <cstdio>
#include <vector>

namespace {

class Keeper : public DL_CreationAdapter {
public:
    void addLine(const DL_LineData& data) override { lines.push_back(data); }
    void addArc(const DL_ArcData& data) override { arcs.push_back(data); }
    void addCircle(const DL_CircleData& data) override { circles.push_back(data); }
    void addVertex(const DL_VertexData& data) override { vertices.push_back(data); }
    void addText(const DL_TextData& data) override { texts.push_back(data); }
    void addMText(const DL_MTextData& data) override { mtexts.push_back(data); }
    void addInsert(const DL_InsertData& data) override { inserts.push_back(data); }

    std::vector<DL_LineData> lines;
    std::vector<DL_ArcData> arcs;
    std::vector<DL_CircleData> circles;
    std::vector<DL_VertexData> vertices;
    std::vector<DL_TextData> texts;
    std::vector<DL_MTextData> mtexts;
    std::vector<DL_InsertData> inserts;
};

} // namespace

int main(int argc, char** argv)
{
    Keeper keeper;
    DL_Dxf reader;
    if (argc != 2 || !reader.in(argv[1], &keeper) || keeper.lines.empty())
        return 1;
    std::printf("%zu lines, %zu vertices\n", keeper.lines.size(), keeper.vertices.size());
    return 0;
}

#include "support/Records.h"

#include <algorithm>
#include <random>

namespace {

// The whole file, read in small blocks the way a content search reads.
std::string Content(std::string const& path) {
    FileOper file(path.c_str(), false);
    std::string content;
    char block[4];
    while (!file.isEof() && file.Read(block, sizeof block, true))
        content.append(block, file.GetReadSize());
    return content;
}

} // namespace

// Random writes, moves and reads of every size, checked against a string that holds what the
// file must hold; then the file itself is read back from disk.
TEST(FileOper, BufferedReadsAndWritesMatchAPlainModel) {
    TempTree tree;
    std::string const path = tree.Path("model");
    std::string model;
    std::size_t position = 0; // within the model: a string of the host's size
    std::mt19937 random(99);
    auto pick = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
    std::string pattern; // what is written, from a random start: a shifted copy shows
    for (std::size_t at = 0; at < 150026; ++at)
        pattern += static_cast<char>('a' + at * 7 % 26);
    {
        FileOper file(path.c_str(), true);
        for (int step = 0; step < 3000; ++step) {
            std::size_t const size = pick(4) == 0 ? pick(150000) : pick(300);
            std::size_t const action = pick(3);
            if (action == 0) {
                std::string const bytes = pattern.substr(pick(26), size);
                ASSERT_TRUE(file.Write(bytes.data(), static_cast<DWORD>(size)));
                model.resize(std::max(model.size(), position + size));
                model.replace(position, size, bytes);
                position += size;
            } else if (action == 1) {
                position = pick(model.size() + 10);
                ASSERT_TRUE(file.SetPos(position));
            } else {
                std::string got(size, '\0');
                bool const partial = pick(2);
                std::size_t const expected =
                    position < model.size() ? std::min(size, model.size() - position) : 0;
                // A read that must be whole fails short; a partial one fails only on nothing.
                ASSERT_EQ(file.Read(&got[0], static_cast<DWORD>(size), partial),
                          partial ? expected != 0 || size == 0 : expected == size);
                ASSERT_EQ(file.GetReadSize(), expected) << "step " << step;
                ASSERT_EQ(got.substr(0, expected), model.substr(position, expected));
                position += expected;
                ASSERT_EQ(file.GetPos(), position);
                ASSERT_EQ(file.isEof(), position >= model.size());
            }
        }
    }
    EXPECT_EQ(Content(path), model);
}

TEST(FileOper, TextLinesTruncationAndClosing) {
    TempTree tree;
    std::string path = tree.Path("out.txt");
    FileOper file(path.c_str(), true), closed;
    EXPECT_TRUE(file.TWrite("line") && file.wtf() && file.Write("xy", 2));
    EXPECT_EQ(file.GetLength(), 8u);
    file = file;
    // A stream is never shared: a copy has none, an assigned target writes out and closes its own.
    EXPECT_TRUE(file.isOpen() && !FileOper(file).isOpen() && !FileOper(&file).isOpen());
    file = closed;
    EXPECT_TRUE(!file.isOpen() && file.GetLength() == 0);
    EXPECT_EQ(Content(path), "line\n\nxy");
    FileOper reader(path.c_str(), false);
    char buffer[4];
    EXPECT_TRUE(reader.Read(buffer, 4, false) && reader.GetTotalReadSize() == 4);
    EXPECT_FALSE(reader.Write("z", 1));
    reader.Close();
    EXPECT_TRUE(reader.isEof() && !reader.Read(buffer, 1, true));
    FileOper(path.c_str(), true).Close(); // truncated
    EXPECT_EQ(FileOper(path.c_str(), false).GetLength(), 0u);

    // A file that shrinks under the reader still ends its loop, where the reader comes to
    // the part it has not read ahead.
    tree.MakeFile("long.txt", std::string(400000, 'x'));
    FileOper shrinking(tree.Path("long.txt").c_str(), false);
    EXPECT_TRUE(shrinking.Read(buffer, 4, true));
    tree.MakeFile("long.txt", std::string(150000, 'y'));
    std::uint64_t total = 4;
    for (int reads = 0; !shrinking.isEof() && reads < 200000; ++reads) {
        shrinking.Read(buffer, sizeof buffer, true);
        total += shrinking.GetReadSize();
    }
    EXPECT_TRUE(shrinking.isEof());
    EXPECT_LE(total, 150000u + 96 * 1024);
}

TEST(FileOper, ReachesPastFourGiB) {
    TempTree tree;
    std::uint64_t const size = (std::uint64_t(5) << 30) + 7;
    tree.MakeSparseFile("big", size);
    FileOper big(tree.Path("big").c_str(), false);
    EXPECT_EQ(big.GetLength(), size);
    char buffer[8] = {1, 1, 1};
    EXPECT_TRUE(big.SetPos(size - 3) && big.Read(buffer, sizeof buffer, true));
    EXPECT_EQ(std::string(buffer, big.GetReadSize()), std::string(3, '\0'));
    EXPECT_EQ(big.GetTotalReadSize(), size);

    FileOper out(tree.Path("written").c_str(), true);
    EXPECT_TRUE(out.SetPos(size) && out.Write("end", 3));
    EXPECT_EQ(out.GetLength(), size + 3);
    EXPECT_TRUE(out.Flush()); // written bytes reach the file at the latest here
    EXPECT_EQ(FileOper(tree.Path("written").c_str(), false).GetLength(), size + 3);
}

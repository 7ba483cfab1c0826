#include <QtCore/QByteArray>
#include <QtCore/QDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

constexpr std::size_t longestInput = 512;

QByteArray randomBytes(unsigned seed)
{
    // Not a distribution of the standard library: those differ from one to the next.
    std::mt19937 random(seed);
    QByteArray bytes(int(random() % longestInput), '\0');
    for (char &byte : bytes)
        byte = char(random());
    return bytes;
}

/// The name comes first: the last one printed is that of the input that failed.
void run(const QByteArray &name, const QByteArray &bytes)
{
    std::printf("%s\n", name.constData());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                           std::size_t(bytes.size()));
}

} // namespace

/// Runs the files of a directory and then random inputs, without a fuzzer.
int main(int argc, char **argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s CORPUS [COUNT [FIRST_SEED]]\n", argv[0]);
        return EXIT_FAILURE;
    }
    LLVMFuzzerInitialize(&argc, &argv);

    const QDir corpus(QString::fromLocal8Bit(argv[1]));
    const QStringList names = corpus.entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        QFile file(corpus.filePath(name));
        if (!file.open(QFile::ReadOnly))
            return EXIT_FAILURE;
        run(name.toLocal8Bit(), file.readAll());
    }
    const unsigned count = argc > 2 ? QByteArray(argv[2]).toUInt() : 0;
    const unsigned first = argc > 3 ? QByteArray(argv[3]).toUInt() : 1;
    for (unsigned seed = first; seed < first + count; ++seed)
        run("seed " + QByteArray::number(seed), randomBytes(seed));
    // A test that found no corpus would test nothing and say that all is well.
    return names.isEmpty() ? EXIT_FAILURE : EXIT_SUCCESS;
}

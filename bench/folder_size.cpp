// Folder.Size against a plain recursive FindFirstFileA walk.
//   bench_folder_size TREE                 sizes an existing tree (bench/run.sh
//                                          makes it and times du on it)
//   bench_folder_size [files] [folders]    makes its own tree of small files
//                                          on the current drive, removes it after
// Each way runs once to warm the caches, then the best of five rounds is
// printed with their ratio, and "figure folder_size <ms> ms" (Folder.Size)
// and "figure plain_walk <ms> ms".
#include <windows.h>

#include "bench_clock.h"
#include "plain_walks.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/files.h"
#include "platform/fso.h"

namespace {

using bench::now_ms;

double plain_walk(const std::string& folder) { return plain::tree_size(folder); }

void write_small(const std::string& path, int n) {
  HANDLE h = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
  if (h == INVALID_HANDLE_VALUE) return;
  std::string data(static_cast<size_t>(n % 700 + 1), 'x');
  DWORD w = 0;
  WriteFile(h, data.data(), static_cast<DWORD>(data.size()), &w, nullptr);
  CloseHandle(h);
}

// Two levels, so that the walk has to descend.
void make_tree(const std::string& tree, int per_folder, int folders) {
  auto& fso = wh::file_system();
  fso.DeleteFolder(tree, true);
  fso.CreateFolder(tree);
  int n = 0;
  for (int f = 0; f < folders; ++f) {
    std::string sub = tree + "\\d" + std::to_string(f % 8);
    fso.CreateFolder(sub);
    sub += "\\e" + std::to_string(f);
    fso.CreateFolder(sub);
    for (int i = 0; i < per_folder; ++i) write_small(sub + "\\f" + std::to_string(i) + ".dat", n++);
  }
  std::printf("tree: %s, %d files in %d folders\n", tree.c_str(), n, folders);
}

}  // namespace

int main(int argc, char** argv) {
  auto& fso = wh::file_system();
  std::string tree;
  const bool given = argc > 1 && fso.FolderExists(argv[1]);
  if (given) {
    tree = argv[1];
  } else {
    std::string root = wh::current_drive_root();
    if (root.empty()) root = "C:\\";
    tree = root + "wh_bench_folder_size";
    make_tree(tree, argc > 1 ? std::atoi(argv[1]) : 100, argc > 2 ? std::atoi(argv[2]) : 40);
  }

  wh::Folder folder;
  if (fso.GetFolder(tree, folder) != 0) {
    std::printf("cannot open the tree\n");
    return 1;
  }
  double size_fso = 0, size_plain = 0;
  folder.Size(size_fso);  // warm: both walks then find the tree in the caches
  size_plain = plain_walk(tree);
  double best_fso = 1e300, best_plain = 1e300;
  for (int round = 0; round < 5; ++round) {
    double t0 = now_ms();
    folder.Size(size_fso);
    double t1 = now_ms();
    size_plain = plain_walk(tree);
    double t2 = now_ms();
    if (t1 - t0 < best_fso) best_fso = t1 - t0;
    if (t2 - t1 < best_plain) best_plain = t2 - t1;
  }
  std::printf("Folder.Size     %10.0f bytes %9.2f ms\n", size_fso, best_fso);
  std::printf("FindFirstFileA  %10.0f bytes %9.2f ms\n", size_plain, best_plain);
  std::printf("ratio plain / Folder.Size: %.2f%s\n", best_fso > 0 ? best_plain / best_fso : 0.0,
              size_fso == size_plain ? "" : "  (sizes differ!)");
  std::printf("figure folder_size %.3f ms\n", best_fso);
  std::printf("figure plain_walk %.3f ms\n", best_plain);

  if (!given) fso.DeleteFolder(tree, true);
  return size_fso == size_plain ? 0 : 1;
}

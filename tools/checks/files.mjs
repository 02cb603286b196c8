// Fails where a file or folder is made, written, renamed or removed by other means than src/files/SafeWriting, but for the
// places below, and where a place below needs no such leave. Fails where the program makes the name of a picture of its
// own outside of src/images/PictureFolder, or writes a picture by SafeFile outside of src/images/PictureStore.
//
// What it sees: Qt's and the system's classes, calls and flags by their names, and calls by what the same file declares
// as a QFile or QDir. It does not see flags that a variable holds, a device that was opened elsewhere, or what SQLite
// writes. Tests, benchmarks and tools write what is theirs.
import { codeOf, lineAt, sources, textOf } from './sources.mjs';

const kinds = {
  writes: [/\bQSaveFile\b/, /\bQ(?:IODevice|IODeviceBase|File|FileDevice)::(?:WriteOnly|ReadWrite|Append|Truncate|NewOnly)\b/,
    /\bQFile::(?:copy|link|resize)\(/, /\bQ(?:Settings|ImageWriter|PdfWriter|LockFile)\b/, /(?:\.|->)save\([^)\s]/, /\bstd::(?:basic_)?(?:o?fstream|filebuf)\b/,
    /\bf(?:re)?open\(/, /\b(?:creat|pwritev?|mknod(?:at)?)\(/, /\bcreate_(?:hard_link|symlink|directory_symlink)\(|\bresize_file\(|(?<![\w.>])::(?:sym)?link(?:at)?\(/, /\bO_(?:WRONLY|RDWR|CREAT)\b/, /\bcopy_file\(|\b(?:fs|filesystem)::copy\(/, /\barchive_write_(?:open_filename|disk_\w+)\(/],
  scratch: [/\bQTemporary(?:File|Dir)\b/],
  folders: [/\bmk(?:path|dir)\(/, /\bcreate_director(?:y|ies)\(/],
  renames: [/(?:\.|->|::)rename\(|\brenameat2?\(/],
  removes: [/(?<!\bstd)::(?:remove(?:_all)?|moveToTrash)\(/, /\bQDir\(.*\)\.remove\(/, /\bremoveRecursively\(/, /\brmdir\(/, /\bunlink(?:at)?\(/],
};
const byVariable = { writes: 'copy|link|resize', removes: 'remove|moveToTrash' };

const seam = 'src/files/SafeWriting.cpp';
const places = {
  // The program.
  'src/base/AppPath.cpp': ['scratch removes', 'whether a folder takes a file is seen by one that goes at once; a first database that is not whole'],
  'src/base/Settings.cpp': ['removes', 'the file beside, which a killed save left'],
  'src/store/CatalogDatabase.cpp': ['removes', 'a copy of the database that is not whole'],
  'src/support/WidgetHelpCollection.h': ['scratch', 'what Qt notes of a help file while it shows'],
  'src/images/PictureStore.cpp': ['removes', 'the owner of "Images"'],
  'src/catalogs/AutomaticBackup.cpp': ['removes', 'the copies that are older than the ten newest'],
  'src/publish/WebPictureCache.cpp': ['writes removes', 'pictures for readers that nothing names; bytes in memory'],
  'src/publish/WebPictures.h': ['scratch', 'pictures for readers, where their folder cannot be written'],
  'src/publish/WebPictures.cpp': ['scratch', 'likewise'],
  'src/publish/PluginChange.cpp': ['removes', 'a plug-in changes places with the former one, by renames that are taken back'],
  'src/publish/PluginPackage.cpp': ['scratch', 'a package gets its place once it is proven'],
  'src/publish/frmPublish.cpp': ['scratch', 'what a preview shows, as long as the program runs'],
  'src/catalogs/BackupPlace.cpp': ['scratch removes', 'the folder in which a backup is put together'],
  'src/catalogs/Restore.cpp': ['renames removes', 'the folder into which a backup is unpacked'],
  'src/catalogs/RestoreSwap.cpp': ['renames removes', 'whole folders change places, by a journal'],
  // The plug-ins, which have nothing of the program but the plug-in headers.
  'publishing/PublishedPictures.cpp': ['writes', 'an icon in memory'],
  'publishing/PublicationInputs.cpp': ['writes', 'into memory alone'],
  'publishing/PublicationRecord.cpp': ['writes folders', 'what is known of the last publication, which counts for nothing once it is damaged'],
  'publishing/SiteSwap.cpp': ['writes folders renames removes', 'the new site takes the place of the old one, file by file'],
  'publishing/SkinFolders.cpp': ['scratch renames removes', 'unpacks a skin where it does not count yet, and gives it its name'],
  'publishing/Staging.cpp': ['folders renames removes', 'a site is made in a folder beside its target'],
};
export const problems = [];
const looked = sources.filter((file) => /^(?:src|publishing|plugins)\//.test(file) && file !== seam);

for (const file of looked) {
  const code = codeOf(file);
  const variables = [...code.matchAll(/\bQ(?:File|Dir|TemporaryFile)\b&?\s+(\w+)/g)].map(([, name]) => name).join('|');
  const leave = new Set((places[file]?.[0] ?? '').split(' ').filter(Boolean));
  const used = new Set();
  for (const [kind, patterns] of Object.entries(kinds)) {
    const all = [...patterns];
    if (variables !== '' && byVariable[kind] !== undefined) all.push(new RegExp(`\\b(?:${variables})(?:\\.|->)(?:${byVariable[kind]})\\(`));
    for (const found of code.matchAll(new RegExp(all.map((each) => each.source).join('|'), 'g'))) {
      used.add(kind);
      if (!leave.has(kind)) problems.push(`${file}:${lineAt(code, found.index)}: ${found[0]} (${kind}) is for SafeWriting to do`);
    }
  }
  for (const kind of leave) if (!used.has(kind)) problems.push(`${file} has leave for "${kind}" and does not need it`);
}
// Pictures have one owner. Of names it sees "t" or a catalog's number put before something, and endings put behind it.
const names = [/\bu?'t'\s*\+/, /\+\s*u?'-'/, /(?:\+\s*|%\d)u?"?\.jpg"/, /-Logo\b/];
const owners = { 'src/images/PictureFolder.cpp': names, 'src/images/PictureStore.cpp': [/\b(?:Write|Copy)(?:FileSafely|StagedFile)\(/] };
const [namer, writer] = Object.keys(owners);
const tell = (file, text, patterns, owner) => {
  for (const pattern of patterns)
    for (const found of text.matchAll(new RegExp(pattern.source, 'g')))
      if (file !== owner) problems.push(`${file}:${lineAt(text, found.index)}: ${found[0]} is for ${owner} to do`);
};
for (const file of looked.filter((each) => each.startsWith('src/'))) {
  tell(file, textOf(file).replace(/\/\/[^\n]*/g, ''), owners[namer], namer);
  if (/^src\/(?:images|products)\//.test(file)) tell(file, codeOf(file), owners[writer], writer);
}

for (const file of Object.keys(places)) if (!looked.includes(file)) problems.push(`${file} has leave and is not there`);

export const told = `${looked.length} files write through SafeWriting, or have a reason`;

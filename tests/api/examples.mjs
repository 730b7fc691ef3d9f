// examples.mjs FOLDER DOCUMENT...: writes the examples of the declarations and of the documents (their blocks marked js)
// to FOLDER. Each becomes a page for the host, in which "expression;  //= value" is a comparison. For the TypeScript
// compiler, all.js contains all examples and the scripts of the HTML pages in the documents.
import { mkdirSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { basename, join } from 'node:path';
import { examplesOf, readDeclarations, writeStatements } from '../../types/declarations.mjs';

const [folder, ...documents] = process.argv.slice(2);
const examples = [...examplesOf(readDeclarations()), ...documents.flatMap(examplesIn)];

function blocksIn(path, language) {
  const blocks = readFileSync(path, 'utf8').matchAll(new RegExp(`^\`\`\`${language}\\b.*\\n([^]*?)^\`\`\`$`, 'gm'));
  return [...blocks].map(([, code]) => code);
}

function examplesIn(path) {
  return blocksIn(path, 'js').map((code, index) => ({ of: `${basename(path)}, example ${index + 1}`, code }));
}

function scriptsIn(path) {
  const scripts = blocksIn(path, 'html').flatMap((page) => [...page.matchAll(/<script>([^]*?)<\/script>/g)]);
  return scripts.map(([, code]) => ({ of: basename(path), code }));
}

function page({ of, code }, index) {
  const next = index + 1 < examples.length ? `${index + 1}.html` : '';
  let expected = 0;
  const checked = writeStatements(code, (actual, value) => {
    ++expected;
    return `same(${JSON.stringify(`${of}: ${actual}`)}, ${actual}, ${value});`;
  });
  return `<!DOCTYPE html>
<meta charset="utf-8">
<title>${of}</title>
<script src="check.js"></script>
<script src="example.js"></script>
<script>begin(${JSON.stringify(of)}, ${expected}, ${JSON.stringify(next)});</script>
<body>
<script>
(function () {
${checked.replaceAll('</', '<\\/')}
})();
ended();
</script>
`;
}

rmSync(folder, { recursive: true, force: true });
mkdirSync(folder, { recursive: true });
examples.forEach((example, index) => writeFileSync(join(folder, `${index}.html`), page(example, index)));
const functions = [...examples, ...documents.flatMap(scriptsIn)].map(({ of, code }) => `// ${of}\n(function () {\n${code}\n})();\n`);
writeFileSync(join(folder, 'all.js'), functions.join('\n'));
console.log(`${examples.length} examples`);

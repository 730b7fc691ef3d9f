// Parses tarvik.d.ts: its declarations, comments and examples. The tests and the showcase use it.
import { readFileSync } from 'node:fs';
import ts from 'typescript';

const file = new URL('tarvik.d.ts', import.meta.url);

// The text and the tags of a doc comment; a tag may occur several times: { text, param: [...], example: [...] }.
function parseComment(comment) {
  const lines = comment.replace(/^\/\*\*|\*\/$/g, '').split('\n').map((line) => line.replace(/^\s*\* ?/, ''));
  const parts = { text: [] };
  let current = parts.text;
  for (const line of lines) {
    const tag = /^@(\w+)\s*(.*)$/.exec(line);
    if (tag) (parts[tag[1]] ??= []).push((current = [tag[2]]));
    else current.push(line);
  }
  const join = (part) => part.join('\n').trim();
  return Object.fromEntries(Object.entries(parts).map(([name, part]) =>
    [name, name === 'text' ? join(part) : part.map(join)]));
}

function commentOf(node, source) {
  const statement = ts.isVariableDeclaration(node) ? node.parent.parent : node;
  const comments = ts.getLeadingCommentRanges(source.text, statement.pos) ?? [];
  const last = comments.map((range) => source.text.slice(range.pos, range.end)).filter((text) => text.startsWith('/**')).pop();
  return parseComment(last ?? '');
}

// How script uses a member: some of call, read and write.
function usesOf(node) {
  if (ts.isMethodSignature(node) || ts.isFunctionDeclaration(node)) return ['call'];
  if (ts.isGetAccessorDeclaration(node)) return ['read'];
  if (ts.isSetAccessorDeclaration(node)) return ['write'];
  const isReadOnly = node.modifiers?.some((modifier) => modifier.kind === ts.SyntaxKind.ReadonlyKeyword);
  return isReadOnly ? ['read'] : ['read', 'write'];
}

const typeOf = (node, source) => node.type?.getText(source);

// The parameters of a method, or the value of a property: { name, type } each.
function parametersOf(node, source) {
  if (node.parameters) return node.parameters.map((one) => ({ name: one.name.getText(source), type: typeOf(one, source) }));
  return [{ name: node.name.text, type: typeOf(node, source) }];
}

// Overloads of a method, and the getter and setter of a property, are one member with several forms.
function membersOf(nodes, source) {
  const members = new Map();
  for (const node of nodes) {
    if (!node.name) continue;
    const name = node.name.text;
    const member = members.get(name) ?? { name, uses: [], forms: [], parameters: [], comments: [] };
    member.uses = [...new Set([...member.uses, ...usesOf(node)])];
    member.forms.push(node.getText(source).replace(/\s+/g, ' ').replace(/;$/, ''));
    member.parameters.push(parametersOf(node, source));
    member.comments.push(commentOf(node, source));
    member.type ??= typeOf(node, source);
    members.set(name, member);
  }
  return [...members.values()];
}

function globalsOf(statement) {
  if (ts.isVariableStatement(statement)) return [...statement.declarationList.declarations];
  return ts.isFunctionDeclaration(statement) ? [statement] : [];
}

const basesOf = (node, source) =>
  (node.heritageClauses ?? []).flatMap((clause) => clause.types.map((type) => type.getText(source)));

// { host: the interface of `external`, interfaces: the others, each { name, bases, comment, members }, aliases: types
// by name, globals: [member] }
export function readDeclarations() {
  const source = ts.createSourceFile('tarvik.d.ts', readFileSync(file, 'utf8'), ts.ScriptTarget.ES5, true);
  const described = (node) => ({
    name: node.name.text, bases: basesOf(node, source), comment: commentOf(node, source),
    members: membersOf(node.members, source),
  });
  const space = source.statements.find(ts.isModuleDeclaration).body.statements;
  const [host, ...interfaces] = space.filter(ts.isInterfaceDeclaration).map(described);
  const aliases = space.filter(ts.isTypeAliasDeclaration).map((node) => [node.name.text, typeOf(node, source)]);
  return { host, interfaces, aliases: Object.fromEntries(aliases), globals: membersOf(source.statements.flatMap(globalsOf), source) };
}

// Every example: { of, code }, in the order of the file.
export function examplesOf({ host, interfaces, globals }) {
  const examples = [];
  const take = (of, comment) => (comment.example ?? []).forEach((code) => examples.push({ of, code }));
  const takeMembers = (prefix, members) =>
    members.forEach((member) => member.comments.forEach((comment) => take(prefix + member.name, comment)));
  takeMembers('', globals);
  for (const { name, comment, members } of [host, ...interfaces]) {
    take(name, comment);
    takeMembers(name + '.', members);
  }
  return examples;
}

// In an example, "expression;  //= value" states the value of an expression. Replaces such lines by
// write(expression, value).
export function writeStatements(code, write) {
  return code.replace(/^(\s*)(.*?);\s*\/\/= (.*)$/gm, (_, indent, expression, value) => indent + write(expression, value));
}

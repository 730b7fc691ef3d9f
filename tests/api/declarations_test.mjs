// declarations_test.mjs SHOWCASE COMMAND...: compares the declarations with the members of the host, which COMMAND
// (member_list) prints. Checks that an example shows every member, and that the packed showcase describes it.
import { execFileSync } from 'node:child_process';
import { readdirSync, readFileSync } from 'node:fs';
import { join } from 'node:path';
import { runInNewContext } from 'node:vm';
import { examplesOf, readDeclarations } from '../../types/declarations.mjs';

const declarations = readDeclarations();

function declaredUses() {
  const interfaces = new Map(declarations.interfaces.map((one) => [one.name, one]));
  const lines = [];
  const take = (name, { members }) =>
    members.forEach((member) => member.uses.forEach((use) => lines.push(`${name} ${member.name} ${use}`)));
  for (const { name, type, uses } of declarations.host.members) {
    const plugin = interfaces.get(type);
    if (uses.includes('call') || !plugin) continue;
    take(name, plugin);
    interfaces.delete(plugin.name);
  }
  for (const [name, object] of interfaces) if (objects.has(name)) take(name, object);
  return lines;
}

// The contents of the showcase: { pages, reference }.
function readShowcase(folder) {
  const showcase = { pages: [], reference: [], add: (page) => showcase.pages.push(page) };
  const pages = readdirSync(join(folder, 'pages')).map((name) => join(folder, 'pages', name));
  for (const script of [join(folder, 'reference.js'), ...pages])
    runInNewContext(readFileSync(script, 'utf8'), { Showcase: showcase });
  return showcase;
}

const [showcase, command, ...rest] = process.argv.slice(2);
const host = execFileSync(command, rest, { encoding: 'utf8' }).split(/\r?\n/).filter(Boolean);
const objects = new Set(host.map((line) => line.split(' ')[0]));

const faults = [];
const declared = declaredUses();
for (const line of host) if (!declared.includes(line)) faults.push(`not declared: ${line}`);
for (const line of declared) if (!host.includes(line)) faults.push(`not in the host: ${line}`);

const shown = examplesOf(declarations).map((example) => example.code).join('\n');
for (const member of new Set(host.map((line) => line.split(' ')[1])))
  if (!new RegExp(`\\.${member}\\b`).test(shown)) faults.push(`in no example: ${member}`);

const { pages, reference } = readShowcase(showcase);
const described = new Set(reference.flatMap(({ name, type, objects }) => objects.flatMap((object) =>
  object.members.map((member) => `${object.name === type ? name : object.name} ${member.name}`))));
for (const line of host)
  if (!described.has(line.replace(/ \w+$/, ''))) faults.push(`not in the reference of the showcase: ${line}`);
for (const { name } of reference)
  if (!pages.some(({ plugins = [] }) => plugins.includes(name))) faults.push(`has no page in the showcase: ${name}`);

console.log(faults.join('\n'));
console.log(`${host.length} uses of members, ${faults.length} faults`);
process.exitCode = faults.length ? 1 : 0;

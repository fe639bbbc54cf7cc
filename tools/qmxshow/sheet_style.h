// The contact sheet's head and style.
#pragma once

#include <string_view>

namespace qmx {

// The policy lets the page load nothing and run no script: all its text comes from strange files.
// The preview's own Exif orientation is ignored: each picture is turned as its file says.
// Pictures fit into a square, so that a quarter turn cannot leave it.
inline constexpr std::string_view kSheetHead = R"(<!DOCTYPE html>
<html lang="ja">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<meta http-equiv="Content-Security-Policy"
 content="default-src 'none'; img-src data:; style-src 'unsafe-inline'">
<title>写真一覧</title>
<style>
:root { --page: #f4f4f2; --card: #fff; --ink: #1d1d1b; --soft: #66665f; --line: #dcdcd6; }
@media (prefers-color-scheme: dark) {
  :root { --page: #161614; --card: #222220; --ink: #ebebe6; --soft: #a3a39b; --line: #3a3a36; }
}
* { box-sizing: border-box; }
body { margin: 0; padding: 1.5rem; background: var(--page); color: var(--ink);
  font: 14px/1.55 "Yu Gothic UI", "Hiragino Sans", "Noto Sans JP", Meiryo, sans-serif; }
h1 { margin: 0 0 1rem; font-size: 1.35rem; font-weight: 600; }
main { display: grid; gap: 1rem; align-items: start;
  grid-template-columns: repeat(auto-fill, minmax(min(17rem, 100%), 1fr)); }
article { padding: .9rem; background: var(--card); border: 1px solid var(--line);
  border-radius: 8px; overflow-wrap: anywhere; }
.pic { display: flex; align-items: center; justify-content: center; width: 100%;
  aspect-ratio: 1; overflow: hidden; margin-bottom: .75rem; background: var(--page);
  border-radius: 4px; color: var(--soft); }
.pic img { display: block; width: 100%; height: 100%; object-fit: contain;
  image-orientation: none; }
h2 { margin: 0; font-size: 1rem; font-weight: 600; }
p { margin: .25rem 0 0; }
.summary { font-variant-numeric: tabular-nums; }
.text { color: var(--soft); font-size: .9rem; }
details { margin-top: .6rem; border-top: 1px solid var(--line); padding-top: .5rem; }
summary { cursor: pointer; color: var(--soft); }
table { width: 100%; margin-top: .4rem; border-collapse: collapse; font-size: .86rem; }
th, td { padding: .15rem .5rem .15rem 0; text-align: left; vertical-align: top;
  font-weight: normal; }
th { width: 46%; color: var(--soft); white-space: pre-wrap; }
td { white-space: pre-wrap; }
.section { padding-top: .6rem; color: var(--ink); font-weight: 600; }
.failed { margin-top: 2rem; }
.failed ul { padding-left: 1.2rem; }
.failed span, footer { color: var(--soft); }
footer { margin-top: 1.5rem; }
@media print { article { break-inside: avoid; } }
</style>
</head>
<body>
<h1>写真一覧</h1>
<main>
)";

}  // namespace qmx

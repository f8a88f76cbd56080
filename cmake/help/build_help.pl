#!/usr/bin/perl
# Builds Velmora.chm: the user guide, the script reference (a page for each
# command), the pages under docs/help, and for each area of the forms the help
# texts of its controls from the forms' help tables (src/editor/control_help_table.inc,
# src/batchvars/batch_help_table.inc), the tables the What's-This pop-ups show. Markdown becomes HTML with cmark-gfm (the docs use
# GitHub's tables), chmcmd compiles it with a keyword index and full-text
# search, and the compiled file is read back to check that it holds a page for
# every script command, every area and the batch editor, the index and the
# search data. The walk-through "Your first script" is the README's section.
# Uses only modules of perl-base.
#
#   build_help.pl <source root> <work folder> <output .chm> <cmark-gfm> <chmcmd>
use strict;
use warnings;
use File::Basename qw(basename dirname);
use File::Path qw(make_path remove_tree);

my ($root, $work, $output, $cmark, $chmcmd) = @ARGV;
die "usage: build_help.pl <source root> <work folder> <output .chm> <cmark-gfm> <chmcmd>\n" unless $chmcmd;

sub fail { die "help: $_[0]\n" }

sub slurp {
  my ($path) = @_;
  open(my $in, '<:raw', $path) or fail("cannot read $path: $!");
  local $/;
  my $text = <$in>;
  close $in;
  return $text;
}

sub spew {
  my ($path, $text) = @_;
  make_path(dirname($path));
  open(my $out, '>:raw', $path) or fail("cannot write $path: $!");
  print $out $text;
  close $out or fail("cannot write $path: $!");
}

# --- the controls' help table and what the code says of the controls --------

# Each form: its help table, the header of its identifiers, its layout table.
my @forms = (['src/editor/control_help_table.inc', 'src/editor/form_controls.h', 'src/editor/editor_layout.cpp'],
             ['src/batchvars/batch_help_table.inc', 'src/batchvars/envvar_setup_layout.h',
              'src/batchvars/envvar_setup_layout.cpp']);

my @help;    # { id, page, title, text }, in table order
for my $table (map { $_->[0] } @forms) {
  my $entries = @help;
  for my $line (split /\n/, slurp("$root/$table")) {
    next unless $line =~ /^VELMORA_CONTROL_HELP\((\w+), "([^"]+)", "([^"]+)", "((?:[^"\\]|\\")+)"\)$/;
    push @help, {id => $1, page => $2, title => $3, text => $4 =~ s/\\"/"/gr};
  }
  fail("no entries in $table") if @help == $entries;
}

my %number;    # enumerator -> identifier
for my $header (map { $_->[1] } @forms) {
  my $ids = slurp("$root/$header");
  $number{$1} = $2 while $ids =~ /^\s+(\w+) = (\d+),/mg;
}

my %name;    # enumerator -> the control's name in the forms' tables
for my $layout (map { $_->[2] } @forms) {
  my $text = slurp("$root/$layout");
  $name{$1} = $2 while $text =~ /\{C::(\w+),\s*"([^"]+)"/g;
}
delete $name{Form};    # the form's own declaration: its title, not a control
my %helped = map { $_->{id} => 1 } @help;
for my $id (sort keys %name) {
  fail("the control $name{$id} has no entry in its form's help table") unless $helped{$id};
}

# The script commands, as the parser's table of words names them.
my $parser = slurp("$root/src/language/parser.cpp");
$parser =~ /kCommandTable =\s*"\|([a-z|]+)\|";/ or fail('no command table in parser.cpp');
my @commands = ((split /\|/, $1), 'comment');

# --- pages from the Markdown sources -----------------------------------------

# A source is one page named after its file, or several: a line
# "<!-- page: NAME -->" starts the page NAME.
my @pages;    # { name, source, markdown }
my @sources = ('docs/user-guide.md', 'docs/deploying.md', 'docs/script-reference.md', map { s|^\Q$root\E/||r } sort glob("$root/docs/help/*.md"));
for my $source (@sources) {
  my $page = {name => basename($source, '.md'), source => $source, markdown => ''};
  push @pages, $page;
  for my $line (split /(?<=\n)/, slurp("$root/$source")) {
    if ($line =~ /^<!-- page: ([\w\/-]+) -->\s*$/) {
      $page = {name => $1, source => $source, markdown => ''};
      push @pages, $page;
      next;
    }
    $page->{markdown} .= $line;
  }
}
# The walk-through of a first script is the README's section, so that the
# README and the help say the same; in the help it is a page of its own.
my ($first_script) = slurp("$root/README.md") =~ /^(## Your first script\n.*?)(?=^## )/ms
  or fail('README.md has no section "Your first script"');
push @pages, {name => 'first-script', source => 'README.md', markdown => $first_script =~ s/^## /# /r};
@pages = grep { $_->{markdown} =~ /\S/ } @pages;
my %page_by_name = map { $_->{name} => $_ } @pages;

# Each area page lists its controls after its own text.
for my $entry (@help) {
  my $page = $page_by_name{$entry->{page}} or fail("no page $entry->{page} for the control $entry->{id}");
  fail("the control $entry->{id} has no identifier in its form's header") unless defined $number{$entry->{id}};
  $page->{markdown} .= "\n## Controls\n" unless $page->{controls}++;
  my $control = $name{$entry->{id}} // $entry->{id};
  $page->{markdown} .= "\n### $entry->{title}\n\n`$control`, identifier $number{$entry->{id}}.\n\n$entry->{text}\n";
}

# --- Markdown to HTML ----------------------------------------------------------

sub plain_text {
  my ($html) = @_;
  $html =~ s/<[^>]*>//g;
  my %entity = (amp => '&', lt => '<', gt => '>', quot => '"', '#39' => "'");
  $html =~ s/&(amp|lt|gt|quot|#39);/$entity{$1}/g;
  return $html;
}

# Heading anchors as GitHub makes them, so links into the docs work in both.
sub slug {
  my $text = lc plain_text($_[0]);
  $text =~ s/[^\w\- ]//g;
  $text =~ tr/ /-/;
  return $text;
}

my %anchor_page;    # "source#anchor" -> page name
my @headings;       # { text, page, anchor }, for the index
for my $page (@pages) {
  my $file = "$work/page.md";
  spew($file, $page->{markdown});
  my $html = `"$cmark" -e table -e autolink "$file"`;
  fail("cmark-gfm failed on $page->{source}") if $? != 0;
  my %seen;
  $html =~ s{<h([1-6])>(.*?)</h\1>}{
    my ($level, $inner) = ($1, $2);
    my $slug = slug($inner);
    $slug .= '-' . $seen{$slug} if $seen{$slug}++;
    $anchor_page{"$page->{source}#$slug"} //= $page->{name};
    push @headings, {text => plain_text($inner) =~ s/[`*]//gr, page => $page->{name}, anchor => $slug};
    "<h$level id=\"$slug\">$inner</h$level>"
  }ge;
  $page->{html} = $html;
  ($page->{title}) = $page->{markdown} =~ /^#{1,3} +(.+?) *$/m;
  $page->{title} = plain_text($page->{title} // $page->{name}) =~ s/[`*]//gr;
}

# A path from the source's folder, with "." and ".." resolved.
sub resolve {
  my ($from, $path) = @_;
  my @parts;
  for my $part (split m{/}, dirname($from) . "/$path") {
    next if $part eq '.' || $part eq '';
    $part eq '..' ? pop @parts : push @parts, $part;
  }
  return join '/', @parts;
}

my %images;
my %first_page_of;
$first_page_of{$_->{source}} //= $_->{name} for @pages;

# Links between the docs become links between pages; pictures are taken in;
# links to files outside the docs keep their text only.
sub rewrite_link {
  my ($page, $target) = @_;
  return $target if $target =~ /^(?:https?|mailto):/;
  my ($path, $anchor) = $target =~ /^([^#]*)(?:#(.*))?$/;
  my $source = $path eq '' ? $page->{source} : resolve($page->{source}, $path);
  my $up = '../' x ($page->{name} =~ tr{/}{});
  if ($source =~ /\.(?:png|jpg|gif)$/) {
    fail("$page->{source} shows $path, which does not exist") unless -f "$root/$source";
    $images{basename($source)} = $source;
    return $up . basename($source);
  }
  return undef unless $source =~ /\.md$/ && defined $first_page_of{$source};
  fail("$page->{source} links to $target, which has no such heading")
    if defined $anchor && !defined $anchor_page{"$source#$anchor"};
  my $to = defined $anchor ? $anchor_page{"$source#$anchor"} : $first_page_of{$source};
  return ($to eq $page->{name} ? '' : "$up$to.html") . (defined $anchor ? "#$anchor" : '');
}

my $style = 'velmora-help.css';
for my $page (@pages) {
  my $html = $page->{html};
  $html =~ s{<a href="([^"]*)"([^>]*)>(.*?)</a>}{
    my $to = rewrite_link($page, $1);
    defined $to ? "<a href=\"$to\"$2>$3</a>" : $3
  }gse;
  $html =~ s{<img src="([^"]*)"}{'<img src="' . (rewrite_link($page, $1) // $1) . '"'}ge;
  my $up = '../' x ($page->{name} =~ tr{/}{});
  spew("$work/chm/$page->{name}.html", <<"HTML");
<!DOCTYPE html>
<html>
<head>
<meta http-equiv="Content-Type" content="text/html; charset=utf-8">
<meta http-equiv="X-UA-Compatible" content="IE=edge">
<title>$page->{title}</title>
<link rel="stylesheet" href="$up$style">
</head>
<body>
$html</body>
</html>
HTML
}
spew("$work/chm/$style", slurp("$root/docs/help/$style"));
spew("$work/chm/$_", slurp("$root/$images{$_}")) for keys %images;

# --- contents, project, compile --------------------------------------------------

# The contents: the top pages in this order, the commands under the script
# reference and the editor's areas under the editor. A page that has no place
# here is an error, so no page is left where no one finds it.
my @top = qw(index using-help first-script user-guide deploying script-reference editor batch-editor);
sub parent_of {
  my ($name) = @_;
  return 'script-reference' if $name =~ m{^commands/};
  return 'editor' if $name =~ /^editor-/;
  return undef;
}
my %children;
for my $page (@pages) {
  my $parent = parent_of($page->{name});
  if (defined $parent) { push @{$children{$parent}}, $page }
  elsif (!grep { $_ eq $page->{name} } @top) { fail("the page $page->{name} has no place in the contents") }
}

sub html_attribute { $_[0] =~ s/&/&amp;/gr =~ s/"/&quot;/gr }
sub toc_entry {
  my ($page) = @_;
  return '<LI><OBJECT type="text/sitemap"><param name="Name" value="' . html_attribute($page->{title})
    . "\"><param name=\"Local\" value=\"$page->{name}.html\"></OBJECT>\n";
}
my $toc = "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\n<HTML><HEAD></HEAD><BODY>\n"
  . "<OBJECT type=\"text/site properties\"></OBJECT>\n<UL>\n";
for my $name (@top) {
  my $page = $page_by_name{$name} or fail("there is no page $name");
  $toc .= toc_entry($page);
  next unless $children{$name};
  $toc .= "<UL>\n" . join('', map { toc_entry($_) } @{$children{$name}}) . "</UL>\n";
}
spew("$work/chm/Velmora.hhc", "$toc</UL>\n</BODY></HTML>\n");

# --- the keyword index ------------------------------------------------------------

# Each script command leads to its page; every heading to its place, unless
# the same heading stands on more than two pages (such as "Controls"), where
# it names no one subject. The names a user may look for that are no
# heading follow, each with the headings or pages that explain it; a target
# that does not exist fails the build.
my %index;    # keyword -> { "page.html#anchor" => title }
sub index_entry {
  my ($keyword, $local, $title) = @_;
  $index{$keyword}{$local} = $title;
}
index_entry($_, "commands/$_.html", $page_by_name{"commands/$_"}{title}) for @commands;
my %pages_with_heading;
$pages_with_heading{$_->{text}}{$_->{page}} = 1 for @headings;
for my $heading (@headings) {
  next if $heading->{page} =~ m{^commands/} || keys %{$pages_with_heading{$heading->{text}}} > 2;
  index_entry($heading->{text}, "$heading->{page}.html#$heading->{anchor}", $page_by_name{$heading->{page}}{title});
}
my @terms = (
  ['breakpoint', 'docs/user-guide.md#running-the-script-and-picking-windows-in-the-editor', 'docs/help/editor-script.md'],
  ['debug file', 'docs/user-guide.md#the-debug-log', 'docs/help/editor-files.md'],
  ['debug log', 'docs/user-guide.md#the-debug-log'],
  ['environment variable', 'docs/script-reference.md#environment-variables', 'docs/user-guide.md#environment-variables'],
  ['exit status', 'docs/user-guide.md#exit-status-of-an-automatic-session', 'docs/deploying.md#exit-status'],
  ['first script', 'README.md#your-first-script'],
  ['halt', 'docs/help/editor-script.md'],
  ['nofile', 'docs/user-guide.md#running-a-script'],
  ['pick', 'docs/user-guide.md#running-the-script-and-picking-windows-in-the-editor', 'README.md#your-first-script'],
  ['record', 'docs/help/editor-recording.md', 'docs/user-guide.md#recording-actions'],
  ['TARGETDIR', 'docs/user-guide.md#the-batch-editor', 'docs/script-reference.md#environment-variables'],
  ['VELMORA_EXPLAIN', 'docs/user-guide.md#when-a-window-is-not-found'],
  ['window not found', 'docs/user-guide.md#when-a-window-is-not-found'],
  ['wintree.exe', 'docs/user-guide.md#windows-and-input'],
);
for my $term (@terms) {
  my ($keyword, @targets) = @$term;
  for my $target (@targets) {
    my ($source, $anchor) = $target =~ /^([^#]+)(?:#(.+))?$/;
    my $page = defined $anchor ? $anchor_page{$target} : $first_page_of{$source};
    fail("the index term $keyword leads to $target, which is no page or heading") unless defined $page;
    index_entry($keyword, "$page.html" . (defined $anchor ? "#$anchor" : ''), $page_by_name{$page}{title});
  }
}

# One topic: its keyword and place; several: the keyword, then a title and
# place for each, which the viewer offers to choose from.
my $hhk = "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\n<HTML><HEAD></HEAD><BODY>\n<UL>\n";
for my $keyword (sort { lc $a cmp lc $b or $a cmp $b } keys %index) {
  my $topics = $index{$keyword};
  my @places = sort keys %$topics;
  my $params = "<param name=\"Name\" value=\"" . html_attribute($keyword) . '">';
  $params .= join '', map {
    (@places > 1 ? '<param name="Name" value="' . html_attribute($topics->{$_}) . '">' : '')
      . "<param name=\"Local\" value=\"$_\">"
  } @places;
  $hhk .= "<LI><OBJECT type=\"text/sitemap\">$params</OBJECT>\n";
}
spew("$work/chm/Velmora.hhk", "$hhk</UL>\n</BODY></HTML>\n");

my @files = ((map {"$_->{name}.html"} @pages), $style, sort keys %images);
# The viewer's window shows the tabs its definition names: without one it
# shows the contents only. Tri-pane, search tab, synchronised contents, the
# page's title in the caption (0x2520), 250 pixels for the tabs, the usual
# buttons (0x3006).
my $window = 'Main="Velmora Help","Velmora.hhc","Velmora.hhk","index.html","index.html",,,,,0x2520,250,0x3006,,,,,,,,0';
spew("$work/chm/Velmora.hhp", <<"HHP" . join("\n", @files) . "\n");
[OPTIONS]
Compatibility=1.1 or later
Compiled file=Velmora.chm
Contents file=Velmora.hhc
Index file=Velmora.hhk
Binary Index=Yes
Full-text search=Yes
Default Window=Main
Default topic=index.html
Display compile progress=No
Language=0x409 English (United States)
Title=Velmora Help

[WINDOWS]
$window

[FILES]
HHP

unlink "$work/chm/Velmora.chm";
my $log = `cd "$work/chm" && "$chmcmd" --no-html-scan Velmora.hhp 2>&1`;
fail("chmcmd did not compile the help:\n$log") unless -s "$work/chm/Velmora.chm";
my $compiled = slurp("$work/chm/Velmora.chm");
spew($output, $compiled);

# --- what the compiled file holds -------------------------------------------------

my %held = map { $_ => 1 } $compiled =~ m{/([\w/-]+\.html)}g;
my @wanted = ((map {"commands/$_.html"} @commands), 'batch-editor.html', map {"$_->{page}.html"} @help);
my @missing = grep { !$held{$_} } @wanted;
fail('Velmora.chm has no page ' . join(', ', @missing)) if @missing;
# The directory of the compiled file names its parts uncompressed: the
# keyword index (the sitemap and its binary form), the full-text search data
# and the window that shows their tabs must be among them, or the viewer
# shows no Index and no Search tab.
my @parts = ('/Velmora.hhk', '/$WWKeywordLinks/BTree', '/$FIftiMain', '/#WINDOWS');
my @absent = grep { index($compiled, $_) < 0 } @parts;
fail('Velmora.chm has no ' . join(', ', @absent)
  . ' (the keyword index, the search data, the window that shows their tabs)') if @absent;
printf "help: Velmora.chm holds %d pages, among them all %d script commands and the batch editor, "
  . "a keyword index of %d entries and full-text search\n", scalar(keys %held), scalar(@commands), scalar(keys %index);

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>LengthUnits</name>
    <message>
        <source>points</source>
        <extracomment>Unit of the margins: 1/72 inch.</extracomment>
        <translation>ポイント</translation>
    </message>
    <message>
        <source>1/10 inches</source>
        <extracomment>Unit of the margins: tenths of an inch.</extracomment>
        <translation>1/10 インチ</translation>
    </message>
    <message>
        <source>mm</source>
        <extracomment>Unit of the margins: millimeters.</extracomment>
        <translation>mm</translation>
    </message>
</context>
<context>
    <name>OptionChanges</name>
    <message>
        <source>%1 (removed)</source>
        <extracomment>One of the changes that are listed: the option %1 is no longer set.</extracomment>
        <translation>%1 (設定解除)</translation>
    </message>
</context>
<context>
    <name>PrintDialog</name>
    <message>
        <source>This version has no properties dialog.</source>
        <translation>このバージョンにはプロパティダイアログがありません。</translation>
    </message>
    <message>
        <source>Error!</source>
        <extracomment>Title of a message: something could not be done.</extracomment>
        <translation>エラー</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be made the default.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>「%1」を既定のプリンターに設定できませんでした。</translation>
    </message>
    <message>
        <source>Warning!</source>
        <extracomment>Title of a message: what is asked for cannot be done now.</extracomment>
        <translation>警告</translation>
    </message>
    <message>
        <source>You can&apos;t print anything while printer is stopped. Please, start the selected printer.</source>
        <translation>プリンターが停止している間は印刷できません。選択したプリンターを再開してください。</translation>
    </message>
    <message>
        <source>Invalid page ranges &quot;%1&quot;
Error at position %1: invalid range value &quot;%1&quot;</source>
        <extracomment>Number the placeholders in a translation: %1 is all that was typed, %2 the position of the error in it, %3 what stands there.</extracomment>
        <translation>ページ範囲「%1」が無効です。
位置 %2 でエラー：範囲の値「%3」が無効です。</translation>
    </message>
</context>
<context>
    <name>PrintDialogBase</name>
    <message>
        <source>LPR GUI</source>
        <extracomment>Title of the window: the graphical interface of the command lpr. Keep the name lpr.</extracomment>
        <translation>LPR GUI</translation>
    </message>
    <message>
        <source>Printer</source>
        <extracomment>The box around the choice of the printer, and that choice for screen readers.</extracomment>
        <translation>プリンター</translation>
    </message>
    <message>
        <source>The printer or class of printers that the job is sent to</source>
        <translation>ジョブを送信するプリンターまたはプリンタークラス</translation>
    </message>
    <message>
        <source>Set as User Default</source>
        <extracomment>Button, with little room: makes the chosen printer the default of this user (not of the whole system).</extracomment>
        <translation>ユーザーの既定に設定</translation>
    </message>
    <message>
        <source>Makes this printer the one that you print to when you choose none</source>
        <translation>プリンターを選択しないときに、このプリンターで印刷するようにします</translation>
    </message>
    <message>
        <source>Properties...</source>
        <extracomment>Button: opens the window with all options of the printer.</extracomment>
        <translation>プロパティ...</translation>
    </message>
    <message>
        <source>Shows all options of this printer</source>
        <translation>このプリンターのすべてのオプションを表示します</translation>
    </message>
    <message>
        <source>Picture of the printer</source>
        <translation>プリンターの画像</translation>
    </message>
    <message>
        <source>Start</source>
        <extracomment>Button, with little room: a verb. Puts the stopped printer into operation again.</extracomment>
        <translation>再開</translation>
    </message>
    <message>
        <source>Starts this printer when it is stopped or rejects jobs</source>
        <translation>このプリンターが停止中またはジョブを拒否中のときに再開します</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>設置場所：</translation>
    </message>
    <message>
        <source>Location of the printer</source>
        <translation>プリンターの設置場所</translation>
    </message>
    <message>
        <source>unknown</source>
        <extracomment>Where a printer stands, what state it is in or how it is described: not known.</extracomment>
        <translation>不明</translation>
    </message>
    <message>
        <source>Status:</source>
        <extracomment>Followed by the state of the printer, for instance: idle, accepting jobs.</extracomment>
        <translation>状態：</translation>
    </message>
    <message>
        <source>Status of the printer</source>
        <translation>プリンターの状態</translation>
    </message>
    <message>
        <source>Description:</source>
        <extracomment>Followed by the description of the printer.</extracomment>
        <translation>説明：</translation>
    </message>
    <message>
        <source>Description of the printer</source>
        <translation>プリンターの説明</translation>
    </message>
    <message>
        <source>Page Selection</source>
        <extracomment>The box around the choice of the pages to print.</extracomment>
        <translation>ページの選択</translation>
    </message>
    <message>
        <source>All pages</source>
        <translation>すべてのページ</translation>
    </message>
    <message>
        <source>Even pages</source>
        <translation>偶数ページ</translation>
    </message>
    <message>
        <source>Odd pages</source>
        <translation>奇数ページ</translation>
    </message>
    <message>
        <source>Some pages:</source>
        <extracomment>Followed by a field for page numbers.</extracomment>
        <translation>ページ指定：</translation>
    </message>
    <message>
        <source>Pages to print</source>
        <extracomment>Names the field for page numbers, for screen readers.</extracomment>
        <translation>印刷するページ</translation>
    </message>
    <message>
        <source>Page numbers and groups of pages, separated by commas</source>
        <translation>コンマで区切ったページ番号とページ範囲</translation>
    </message>
    <message>
        <source>Enter page numbers and/or groups of pages to print separated by commas (1,2-5,10-12,17).</source>
        <extracomment>The example is what is typed: digits 0 to 9, hyphens and commas in every language.</extracomment>
        <translation>ページ番号やページ範囲を半角コンマで区切って入力してください (1,2-5,10-12,17)。</translation>
    </message>
    <message>
        <source>Copies</source>
        <extracomment>The box around the number of copies and their order; also names the field of the number.</extracomment>
        <translation>部数</translation>
    </message>
    <message>
        <source>Copies [1~100]:</source>
        <extracomment>Number of copies, from 1 to 100.</extracomment>
        <translation>部数 [1~100]：</translation>
    </message>
    <message>
        <source>Collate copies</source>
        <extracomment>Option: print the copies one after the other (1,2,3,1,2,3), not page by page (1,1,2,2,3,3).</extracomment>
        <translation>部単位で印刷</translation>
    </message>
    <message>
        <source>Reverse All Pages (3,2,1)</source>
        <extracomment>Option: print the last page first.</extracomment>
        <translation>すべてのページを逆順に印刷 (3,2,1)</translation>
    </message>
    <message>
        <source>Order of the printed pages</source>
        <extracomment>Describes a picture that shows the order of the pages, for screen readers.</extracomment>
        <translation>印刷されるページの順序</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>OK(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>キャンセル(&amp;C)</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialog</name>
    <message>
        <source>LPR GUI: Options Conflict</source>
        <extracomment>Title of a message. Keep the name lpr.</extracomment>
        <translation>LPR GUI：オプションの競合</translation>
    </message>
    <message>
        <source>Some options selected are in conflict.
Resolve those conflicts before continuing.
Hint: click Advanced on Device tab.
Conflicting options will be shown in red color.
</source>
        <extracomment>&quot;Advanced&quot; is the tab of that name.</extracomment>
        <translation>選択したオプションの一部が競合しています。
続行する前に競合を解決してください。
ヒント：「詳細設定」タブを確認してください。
競合しているオプションは赤色で表示されます。
</translation>
    </message>
    <message>
        <source>Options Not Saved</source>
        <translation>オプションを保存できませんでした</translation>
    </message>
    <message>
        <source>The options of &quot;%1&quot; could not be saved: the print server does not answer, or the file of the saved options cannot be written. The changes are listed below; they will not apply to what you print.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>「%1」のオプションを保存できませんでした。プリントサーバーが応答しないか、オプションを保存するファイルに書き込めません。変更内容は以下のとおりです。これらの変更は印刷に適用されません。</translation>
    </message>
    <message>
        <source>Unknown Printer</source>
        <translation>不明なプリンター</translation>
    </message>
    <message>
        <source>The print server no longer knows &quot;%1&quot;. Its options were saved on this computer for the case that it comes back.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>プリントサーバーに「%1」が見つからなくなりました。再び使えるようになる場合に備えて、オプションをこのコンピューターに保存しました。</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialogBase</name>
    <message>
        <source>&apos;%s&apos; Properties</source>
        <extracomment>Title of the window: the properties of the printer %s.</extracomment>
        <translation>「%s」のプロパティ</translation>
    </message>
    <message>
        <source>General</source>
        <extracomment>Tab: paper, orientation, duplex and the like.</extracomment>
        <translation>全般</translation>
    </message>
    <message>
        <source>Paper Options</source>
        <extracomment>Box: size and type of the paper.</extracomment>
        <translation>用紙オプション</translation>
    </message>
    <message>
        <source>Paper Size:</source>
        <translation>用紙サイズ：</translation>
    </message>
    <message>
        <source>Paper Type:</source>
        <extracomment>What the paper is made of: plain, glossy, transparency ...</extracomment>
        <translation>用紙の種類：</translation>
    </message>
    <message>
        <source>Paper Orientation</source>
        <translation>印刷の向き</translation>
    </message>
    <message>
        <source>Portrait</source>
        <extracomment>Orientation of the page: upright. (Not a picture of a person.)</extracomment>
        <translation>縦</translation>
    </message>
    <message>
        <source>Landscape</source>
        <extracomment>Orientation of the page: wide. (Not a picture of scenery.)</extracomment>
        <translation>横</translation>
    </message>
    <message>
        <source>Reverse</source>
        <extracomment>Option of the orientation: the page turned upside down, by 180 degrees.</extracomment>
        <translation>180 度回転</translation>
    </message>
    <message>
        <source>Orientation of the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>ページの向き</translation>
    </message>
    <message>
        <source>Double-Sided Printing</source>
        <translation>両面印刷</translation>
    </message>
    <message>
        <source>Off</source>
        <extracomment>Double-sided printing is off: printed on one side only.</extracomment>
        <translation>オフ</translation>
    </message>
    <message>
        <source>Long Edge [Book]</source>
        <extracomment>Double-sided, pages turned along the long edge of the sheet as in a book.</extracomment>
        <translation>長辺綴じ [本]</translation>
    </message>
    <message>
        <source>Short Edge [Tablet]</source>
        <extracomment>Double-sided, pages turned along the short edge of the sheet as on a notepad.</extracomment>
        <translation>短辺綴じ [メモ帳]</translation>
    </message>
    <message>
        <source>How both sides of a sheet are printed</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>用紙の両面に印刷する方法</translation>
    </message>
    <message>
        <source>Pages per Side [N-Up]</source>
        <extracomment>How many pages are put, smaller, on one side of a sheet.</extracomment>
        <translation>片面あたりのページ数 [N アップ]</translation>
    </message>
    <message>
        <source>Normal (1-Up)</source>
        <extracomment>One page on each side of a sheet.</extracomment>
        <translation>標準 (1 アップ)</translation>
    </message>
    <message>
        <source>2-Up</source>
        <extracomment>Two pages on each side of a sheet.</extracomment>
        <translation>2 アップ</translation>
    </message>
    <message>
        <source>4-Up</source>
        <extracomment>Four pages on each side of a sheet.</extracomment>
        <translation>4 アップ</translation>
    </message>
    <message>
        <source>Pages on one side of a sheet</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>用紙の片面に印刷されるページ</translation>
    </message>
    <message>
        <source>Banners</source>
        <extracomment>Box: cover sheets that say whose job it is, before and after the job.</extracomment>
        <translation>バナーページ</translation>
    </message>
    <message>
        <source>Start:</source>
        <extracomment>A noun: the cover sheet before the job.</extracomment>
        <translation>開始：</translation>
    </message>
    <message>
        <source>Banner before the job</source>
        <translation>ジョブの前のバナーページ</translation>
    </message>
    <message>
        <source>End:</source>
        <extracomment>A noun: the cover sheet after the job.</extracomment>
        <translation>終了：</translation>
    </message>
    <message>
        <source>Banner after the job</source>
        <translation>ジョブの後のバナーページ</translation>
    </message>
    <message>
        <source>Text</source>
        <extracomment>Tab: options of text files.</extracomment>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>The following options apply only when printing text files.</source>
        <translation>以下のオプションは、テキストファイルを印刷するときにのみ適用されます。</translation>
    </message>
    <message>
        <source>Margins</source>
        <translation>余白</translation>
    </message>
    <message>
        <source>Use device default margins</source>
        <translation>デバイスの既定の余白を使用</translation>
    </message>
    <message>
        <source>Units:</source>
        <extracomment>Units of length, followed by the choice: points, 1/10 inches, mm.</extracomment>
        <translation>単位：</translation>
    </message>
    <message>
        <source>Left:</source>
        <extracomment>Margin at the left.</extracomment>
        <translation>左：</translation>
    </message>
    <message>
        <source>Left margin</source>
        <translation>左余白</translation>
    </message>
    <message>
        <source>Right:</source>
        <extracomment>Margin at the right.</extracomment>
        <translation>右：</translation>
    </message>
    <message>
        <source>Right margin</source>
        <translation>右余白</translation>
    </message>
    <message>
        <source>Top:</source>
        <extracomment>Margin at the top.</extracomment>
        <translation>上：</translation>
    </message>
    <message>
        <source>Top margin</source>
        <translation>上余白</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <extracomment>Margin at the bottom.</extracomment>
        <translation>下：</translation>
    </message>
    <message>
        <source>Bottom margin</source>
        <translation>下余白</translation>
    </message>
    <message>
        <source>Plain Text Options</source>
        <extracomment>Options of text files without formatting.</extracomment>
        <translation>プレーンテキストのオプション</translation>
    </message>
    <message>
        <source>Spacing</source>
        <extracomment>Box: characters and lines per inch.</extracomment>
        <translation>間隔</translation>
    </message>
    <message>
        <source>Characters per inch:</source>
        <translation>1 インチあたりの文字数：</translation>
    </message>
    <message>
        <source>Lines per inch:</source>
        <translation>1 インチあたりの行数：</translation>
    </message>
    <message>
        <source>Columns</source>
        <extracomment>Box: into how many columns the text of a page is set.</extracomment>
        <translation>段組み</translation>
    </message>
    <message>
        <source>Columns:</source>
        <extracomment>Number of columns of text on a page.</extracomment>
        <translation>段数：</translation>
    </message>
    <message>
        <source>Columns of text on the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>ページ上のテキストの段組み</translation>
    </message>
    <message>
        <source>Page Decoration</source>
        <extracomment>Box: what is added to printed text.</extracomment>
        <translation>ページの装飾</translation>
    </message>
    <message>
        <source>Pretty printing</source>
        <extracomment>Option: a header on each page, keywords of programming languages in bold.</extracomment>
        <translation>整形印刷</translation>
    </message>
    <message>
        <source>Look of the printed text</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>印刷されるテキストの外観</translation>
    </message>
    <message>
        <source>Graphics</source>
        <extracomment>Tab: options of image files.</extracomment>
        <translation>画像</translation>
    </message>
    <message>
        <source>The following options apply only when printing image files.</source>
        <translation>以下のオプションは、画像ファイルを印刷するときにのみ適用されます。</translation>
    </message>
    <message>
        <source>Color Adjustments</source>
        <translation>色の調整</translation>
    </message>
    <message>
        <source>Use default color settings</source>
        <translation>既定の色設定を使用</translation>
    </message>
    <message>
        <source>Brightness:</source>
        <translation>明るさ：</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>明るさ</translation>
    </message>
    <message>
        <source>Gamma:</source>
        <extracomment>Gamma correction of an image.</extracomment>
        <translation>ガンマ：</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>ガンマ</translation>
    </message>
    <message>
        <source>Hue:</source>
        <extracomment>Turn of an image&apos;s colors around the color circle.</extracomment>
        <translation>色相：</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>色相</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <extracomment>Strength of an image&apos;s colors.</extracomment>
        <translation>彩度：</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>彩度</translation>
    </message>
    <message>
        <source>Sample image with these colors</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>この色設定でのサンプル画像</translation>
    </message>
    <message>
        <source>Image Size</source>
        <translation>画像サイズ</translation>
    </message>
    <message>
        <source>Use specific resolution</source>
        <extracomment>One of two ways to say how large an image is printed: pixels per inch.</extracomment>
        <translation>解像度を指定</translation>
    </message>
    <message>
        <source>Resolution</source>
        <extracomment>Names the field of the resolution in pixels per inch, for screen readers.</extracomment>
        <translation>解像度</translation>
    </message>
    <message>
        <source>ppi</source>
        <extracomment>Unit behind a number: pixels per inch.</extracomment>
        <translation>ppi</translation>
    </message>
    <message>
        <source>Use scaling</source>
        <extracomment>One of two ways to say how large an image is printed: percent.</extracomment>
        <translation>倍率を指定</translation>
    </message>
    <message>
        <source>Scaling</source>
        <extracomment>Names the field of the size in percent of the page, for screen readers.</extracomment>
        <translation>倍率</translation>
    </message>
    <message>
        <source>%</source>
        <extracomment>Unit behind a number: percent of the page.</extracomment>
        <translation>%</translation>
    </message>
    <message>
        <source>Fit to Page</source>
        <extracomment>Button: makes the image as large as the page.</extracomment>
        <translation>ページに合わせる</translation>
    </message>
    <message>
        <source>Image Position</source>
        <extracomment>Box: where an image is printed on the page.</extracomment>
        <translation>画像の位置</translation>
    </message>
    <message>
        <source>Position of the image on the page</source>
        <translation>ページ上の画像の位置</translation>
    </message>
    <message>
        <source>Vertical position</source>
        <translation>垂直位置</translation>
    </message>
    <message>
        <source>Horizontal position</source>
        <translation>水平位置</translation>
    </message>
    <message>
        <source>Advanced</source>
        <extracomment>Tab: all options of the printer&apos;s driver.</extracomment>
        <translation>詳細設定</translation>
    </message>
    <message>
        <source>Driver options</source>
        <extracomment>Names the tree of the printer&apos;s options, for screen readers.</extracomment>
        <translation>ドライバーのオプション</translation>
    </message>
    <message>
        <source>This printer has no driver with options of its own.</source>
        <translation>このプリンターには、独自のオプションを持つドライバーがありません。</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>適用(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>OK(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>キャンセル(&amp;C)</translation>
    </message>
</context>
</TS>

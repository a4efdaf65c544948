<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Vupuge</name>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source> points</source>
        <translation> ポイント</translation>
    </message>
    <message>
        <source>%1 (cannot be read)</source>
        <translation>%1（読み込めません）</translation>
    </message>
    <message>
        <source>%1 as they were</source>
        <translation>%1 件はそのまま</translation>
    </message>
    <message>
        <source>%1 as to-do lines</source>
        <translation>%1 件はチェックボックス付きの行</translation>
    </message>
    <message>
        <source>%1 at line %2, column %3</source>
        <translation>%1（%2 行 %3 列）</translation>
    </message>
    <message>
        <source>%1 could not be started: %2</source>
        <translation>%1 を起動できませんでした：%2</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>%1 が応答しません。</translation>
    </message>
    <message>
        <source>%1 does not understand what it was asked (%2).</source>
        <translation>%1 は要求を理解できません（%2）。</translation>
    </message>
    <message>
        <source>%1 ended before it answered.</source>
        <translation>%1 は応答する前に終了しました。</translation>
    </message>
    <message>
        <source>%1 gave an answer that cannot be understood (%2).</source>
        <translation>%1 の応答を理解できません（%2）。</translation>
    </message>
    <message>
        <source>%1 imported</source>
        <translation>%1 件を読み込み</translation>
    </message>
    <message>
        <source>%1 in skipped notes</source>
        <translation>%1 件はスキップしたノート内</translation>
    </message>
    <message>
        <source>%1 is neither running nor installed.</source>
        <translation>%1 は起動しておらず、インストールもされていません。</translation>
    </message>
    <message>
        <source>%1 items could not be imported. The first is “%2”: %3</source>
        <translation>%1 項目を読み込めませんでした。最初は「%2」です：%3</translation>
    </message>
    <message>
        <source>%1 kept at the end of their notes</source>
        <translation>%1 件はノートの末尾に保持</translation>
    </message>
    <message>
        <source>%1 lead to imported notes</source>
        <translation>%1 件は読み込んだノートへのリンク</translation>
    </message>
    <message>
        <source>%1 left out</source>
        <translation>%1 件を省略</translation>
    </message>
    <message>
        <source>%1 not imported</source>
        <translation>%1 件は未読み込み</translation>
    </message>
    <message>
        <source>%1 refused what it was asked (%2).</source>
        <translation>%1 は要求を拒否しました（%2）。</translation>
    </message>
    <message>
        <source>%1 shown</source>
        <translation>%1 件を表示</translation>
    </message>
    <message>
        <source>%1 skipped</source>
        <translation>%1 件をスキップ</translation>
    </message>
    <message>
        <source>%1$@ of %2$@</source>
        <translation>%1$@ / %2$@</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%@/sec</source>
        <translation>%@/秒</translation>
    </message>
    <message numerus="yes">
        <source>%Ln notebooks checked</source>
        <translation>
            <numerusform>%Ln 冊のノートブックをチェック</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes</source>
        <translation>
            <numerusform>%Ln 件のノート</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were imported.</source>
        <translation>
            <numerusform>%Ln 件のノートを読み込みました。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were skipped.</source>
        <translation>
            <numerusform>%Ln 件のノートがスキップされました。</numerusform>
        </translation>
    </message>
    <message>
        <source>%ld day remaining</source>
        <translation>残り %ld 日</translation>
    </message>
    <message>
        <source>%ld days remaining</source>
        <translation>残り %ld 日</translation>
    </message>
    <message>
        <source>%ld hour remaining</source>
        <translation>残り %ld 時間</translation>
    </message>
    <message>
        <source>%ld hours remaining</source>
        <translation>残り %ld 時間</translation>
    </message>
    <message>
        <source>%ld minute remaining</source>
        <translation>残り %ld 分</translation>
    </message>
    <message>
        <source>%ld minutes remaining</source>
        <translation>残り %ld 分</translation>
    </message>
    <message>
        <source>%ld second remaining</source>
        <translation>残り %ld 秒</translation>
    </message>
    <message>
        <source>%ld seconds remaining</source>
        <translation>残り %ld 秒</translation>
    </message>
    <message>
        <source>%lu notes exported</source>
        <translation>%lu 件のノートを書き出しました</translation>
    </message>
    <message>
        <source>%lu of %lu notes exported</source>
        <translation>%2$lu 件中 %1$lu 件のノートを書き出しました</translation>
    </message>
    <message>
        <source>&amp;About Vupuge</source>
        <translation>Vupuge について(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Background colour:</source>
        <translation>背景色(&amp;B)：</translation>
    </message>
    <message>
        <source>&amp;Check All Notebooks</source>
        <translation>すべてのノートブックをチェック(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>完了(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;ENEX Files</source>
        <translation>ENEX ファイル(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Find Notebook</source>
        <translation>ノートブックを検索(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Font:</source>
        <translation>フォント(&amp;F)：</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>読み込む(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Notebooks to import:</source>
        <translation>読み込むノートブック(&amp;N)：</translation>
    </message>
    <message>
        <source>&amp;Notes</source>
        <translation>ノート(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>オプション(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Read files of today's Evernote whole</source>
        <translation>現在の Evernote のファイルを完全に読む(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Release Notes</source>
        <translation>リリースノート(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Restore Defaults</source>
        <translation>デフォルトに戻す(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Text colour:</source>
        <translation>文字の色(&amp;T)：</translation>
    </message>
    <message>
        <source>&amp;Uncheck All Notebooks</source>
        <translation>すべてのチェックを外す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Web Pages</source>
        <translation>ウェブページ(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Zoom:</source>
        <translation>表示倍率(&amp;Z)：</translation>
    </message>
    <message>
        <source>A date is too far off for an XML property list.</source>
        <translation>XML プロパティリストには日付が離れすぎています。</translation>
    </message>
    <message>
        <source>A date of the note is damaged and was left out.</source>
        <translation>ノートの日付の一つが壊れているため、省かれました。</translation>
    </message>
    <message>
        <source>A library folder takes no destination, rating, comments, label or tags.</source>
        <translation>ライブラリフォルダでは、保存先、評価、コメント、ラベル、タグを指定できません。</translation>
    </message>
    <message>
        <source>A link is changed where its text is the title of exactly one note of the file. All others keep leading to Evernote.</source>
        <translation>リンクの文字列がファイル内のただ一つのノートのタイトルと一致する場合に変更されます。それ以外は引き続き Evernote へのリンクです。</translation>
    </message>
    <message>
        <source>A note is not there any more.</source>
        <translation>ノートの一つがもうありません。</translation>
    </message>
    <message>
        <source>A secure connection to the server could not be made.</source>
        <translation>サーバへの安全な接続を確立できませんでした。</translation>
    </message>
    <message>
        <source>A server with the specified host name could not be found.</source>
        <translation>指定した名前のサーバが見つかりません。</translation>
    </message>
    <message>
        <source>A tag with more than %1 attributes</source>
        <translation>%1 を超える属性を持つタグ</translation>
    </message>
    <message>
        <source>A value has no place in a property list.</source>
        <translation>プロパティリストに入れられない値があります。</translation>
    </message>
    <message>
        <source>An error occurred while exporting.</source>
        <translation>書き出し中にエラーが起きました。</translation>
    </message>
    <message>
        <source>An older way of getting notes out of Evernote, one file for each note. ENEX keeps more.</source>
        <translation>ノートごとに 1 ファイルを書き出す古い方法です。ENEX の方が多くの内容を保持します。</translation>
    </message>
    <message>
        <source>An unknown error occurred.</source>
        <translation>原因不明のエラーが起きました。</translation>
    </message>
    <message>
        <source>Another import is running.</source>
        <translation>別の読み込みが実行中です。</translation>
    </message>
    <message>
        <source>Another note has the same link; only that one was kept.</source>
        <translation>別のノートに同じリンクがあるため、そのノートだけが残されました。</translation>
    </message>
    <message>
        <source>Attachments that the files do not hold: %1</source>
        <translation>ファイルに含まれない添付ファイル：%1</translation>
    </message>
    <message>
        <source>Attachments that the note shows but the file does not hold: %1.</source>
        <translation>ノートに表示されるがファイルに含まれない添付ファイル：%1。</translation>
    </message>
    <message>
        <source>Attachments: %1</source>
        <translation>添付ファイル：%1</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>ブックマーク</translation>
    </message>
    <message>
        <source>Brings Evernote notes into Quillery.</source>
        <translation>Evernote のノートを Quillery に取り込みます。</translation>
    </message>
    <message>
        <source>C&amp;hoose Folder...</source>
        <translation>フォルダを選択(&amp;H)…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <translation>キャンセルしています…</translation>
    </message>
    <message>
        <source>Cannot create input stream.</source>
        <translation>入力ストリームを作成できません。</translation>
    </message>
    <message>
        <source>Cannot create parser.</source>
        <translation>パーサを作成できません。</translation>
    </message>
    <message>
        <source>Cannot parse "%@" data.</source>
        <translation>「%@」のデータを解析できません。</translation>
    </message>
    <message>
        <source>Choose &amp;Folder...</source>
        <translation>フォルダを選択(&amp;F)…</translation>
    </message>
    <message>
        <source>Choose ENEX File...</source>
        <translation>ENEX ファイルを選択…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Code: %ld</source>
        <translation>コード：%ld</translation>
    </message>
    <message>
        <source>Could not connect to the server.</source>
        <translation>サーバに接続できませんでした。</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>デフォルト</translation>
    </message>
    <message>
        <source>Default (%1)</source>
        <translation>デフォルト (%1)</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>書類</translation>
    </message>
    <message>
        <source>Drop an ENEX file here</source>
        <translation>ここに ENEX ファイルをドロップ</translation>
    </message>
    <message>
        <source>Due: %1</source>
        <translation>期限：%1</translation>
    </message>
    <message>
        <source>Elements within more than %1 others</source>
        <translation>%1 を超える要素の入れ子</translation>
    </message>
    <message>
        <source>Encrypted passages, which cannot be read: %1. Asterisks stand in their place.</source>
        <translation>読み取れない暗号化された箇所：%1。代わりにアスタリスクが入ります。</translation>
    </message>
    <message>
        <source>Encrypted passages: %1</source>
        <translation>暗号化された箇所：%1</translation>
    </message>
    <message>
        <source>Evernote 10 and later write ENEX files in a new way. Read as they stand, such files lose dates and tasks, and tags gain empty entries. Files that are dropped on the window are recognized as long as nothing is chosen here.</source>
        <translation>Evernote 10 以降は ENEX ファイルを新しい形式で書き出します。そのまま読むと日付とタスクが失われ、タグに空の項目が加わります。ウインドウにドロップしたファイルは、ここで何も選択していない間は自動的に判別されます。</translation>
    </message>
    <message>
        <source>Evernote 5.2.0 or later is required.</source>
        <translation>Evernote 5.2.0 以降が必要です。</translation>
    </message>
    <message>
        <source>Evernote did not export this note.</source>
        <translation>Evernote はこのノートを書き出しませんでした。</translation>
    </message>
    <message>
        <source>Evernote export files (%1)</source>
        <translation>Evernote 書き出しファイル (%1)</translation>
    </message>
    <message>
        <source>Everything came across.</source>
        <translation>すべて読み込まれました。</translation>
    </message>
    <message>
        <source>Everything that is made of each note stands in the log of the next import.</source>
        <translation>次回の読み込みのログに、各ノートの変換結果がすべて記録されます。</translation>
    </message>
    <message>
        <source>Export notes from Evernote in the format ENEX and try again.</source>
        <translation>Evernote から ENEX 形式でノートを書き出して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Exported files in the folder “%1” are listed here as notebooks.</source>
        <translation>フォルダ「%1」にある書き出しファイルは、ここにノートブックとして表示されます。</translation>
    </message>
    <message>
        <source>Exporting Notes</source>
        <translation>ノートを書き出しています</translation>
    </message>
    <message>
        <source>Exporting notes from "%@"</source>
        <translation>「%@」からノートを書き出しています</translation>
    </message>
    <message>
        <source>Exports Folder</source>
        <translation>書き出しフォルダ</translation>
    </message>
    <message>
        <source>Exports folder:</source>
        <translation>書き出しフォルダ:</translation>
    </message>
    <message>
        <source>Fi&amp;xed-pitch font:</source>
        <translation>等幅フォント(&amp;X)：</translation>
    </message>
    <message>
        <source>Files to import, and folders that hold such files.</source>
        <translation>読み込むファイル、またはそれらを含むフォルダ。</translation>
    </message>
    <message>
        <source>Flagged</source>
        <translation>フラグ付き</translation>
    </message>
    <message>
        <source>Font &amp;size:</source>
        <translation>文字サイズ(&amp;S)：</translation>
    </message>
    <message>
        <source>Getting notebook names...</source>
        <translation>ノートブック名を取得しています…</translation>
    </message>
    <message>
        <source>Have Evernote export notes as HTML</source>
        <translation>Evernote に HTML 形式で書き出させる</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>イメージ</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>読み込み</translation>
    </message>
    <message>
        <source>Import ENEX Fi&amp;le...</source>
        <translation>ENEX ファイルを読み込む(&amp;L)…</translation>
    </message>
    <message>
        <source>Import ENEX File</source>
        <translation>ENEX ファイルを読み込む</translation>
    </message>
    <message>
        <source>Import “%1”</source>
        <translation>「%1」を読み込む</translation>
    </message>
    <message>
        <source>Imported from Evernote, %@</source>
        <translation>Evernote から読み込み、%@</translation>
    </message>
    <message>
        <source>In Evernote, choose a notebook, then “Export Notebook…” and the format ENEX. Drop the file that you get on this window, or choose it here.</source>
        <translation>Evernote でノートブックを選び、「ノートブックを書き出す…」で ENEX 形式を選択します。できたファイルをこのウインドウにドロップするか、ここで選択してください。</translation>
    </message>
    <message>
        <source>Initializing Evernote...</source>
        <translation>Evernote を初期化しています…</translation>
    </message>
    <message>
        <source>Invalid content data for resource.</source>
        <translation>リソースの内容が無効です。</translation>
    </message>
    <message>
        <source>Invalid crypt tag.</source>
        <translation>暗号化タグが無効です。</translation>
    </message>
    <message>
        <source>Invalid media tag.</source>
        <translation>メディアタグが無効です。</translation>
    </message>
    <message>
        <source>Invalid todo tag.</source>
        <translation>タスクタグが無効です。</translation>
    </message>
    <message>
        <source>It does not reach to its end.</source>
        <translation>最後まで書かれていません。</translation>
    </message>
    <message>
        <source>Keep attachments that a note's text does not show</source>
        <translation>ノートの本文に表示されない添付ファイルを残す</translation>
    </message>
    <message>
        <source>Keeps dates, tags and tasks of files that Evernote 10 or later has written.</source>
        <translation>Evernote 10 以降が書き出したファイルの日付、タグ、タスクを保持します。</translation>
    </message>
    <message>
        <source>Library Folder</source>
        <translation>ライブラリフォルダ</translation>
    </message>
    <message>
        <source>Library folder:</source>
        <translation>ライブラリフォルダ：</translation>
    </message>
    <message>
        <source>Links between notes lead to the imported notes</source>
        <translation>ノート間のリンクを読み込んだノートに向ける</translation>
    </message>
    <message>
        <source>Links between notes: %1</source>
        <translation>ノート間のリンク：%1</translation>
    </message>
    <message>
        <source>Links that lead to notes which were skipped: %1.</source>
        <translation>スキップしたノートへのリンク：%1。</translation>
    </message>
    <message>
        <source>Load clipped pages from the web again</source>
        <translation>クリップしたページをウェブから再読み込みする</translation>
    </message>
    <message>
        <source>Loading notebooks</source>
        <translation>ノートブックを読み込み中</translation>
    </message>
    <message>
        <source>Mark captured pages for Java</source>
        <translation>取り込んだページを Java 有効とする</translation>
    </message>
    <message>
        <source>Mark captured pages for JavaScript</source>
        <translation>取り込んだページを JavaScript 有効とする</translation>
    </message>
    <message>
        <source>Mark captured pages for plug-ins</source>
        <translation>取り込んだページをプラグイン有効とする</translation>
    </message>
    <message>
        <source>More marks of tags:</source>
        <translation>タグの追加の印：</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>ムービー</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>新規ノート</translation>
    </message>
    <message>
        <source>Next File</source>
        <translation>次のファイル</translation>
    </message>
    <message>
        <source>No content data for resource.</source>
        <translation>リソースに内容がありません。</translation>
    </message>
    <message>
        <source>No notebooks selected!</source>
        <translation>ノートブックが選択されていません！</translation>
    </message>
    <message>
        <source>Not everything that the files hold came across.</source>
        <translation>ファイルの内容がすべて読み込まれたわけではありません。</translation>
    </message>
    <message>
        <source>Not imported</source>
        <translation>読み込み失敗</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>ノート</translation>
    </message>
    <message>
        <source>Notebook</source>
        <translation>ノートブック</translation>
    </message>
    <message>
        <source>Notebooks</source>
        <translation>ノートブック</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>ノート数</translation>
    </message>
    <message>
        <source>Notes go here on a machine without Quillery.</source>
        <translation>Quillery のないコンピュータでは、ノートはここに保存されます。</translation>
    </message>
    <message>
        <source>Notes: %1</source>
        <translation>ノート：%1</translation>
    </message>
    <message>
        <source>Nothing could be imported into “%1”: %2</source>
        <translation>「%1」に何も読み込めませんでした：%2</translation>
    </message>
    <message>
        <source>Nothing in a page is ever run while it is captured, whatever is chosen here.</source>
        <translation>ここでの選択にかかわらず、取り込み中にページの内容が実行されることはありません。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Objects are nested too deeply.</source>
        <translation>オブジェクトの入れ子が深すぎます。</translation>
    </message>
    <message>
        <source>On a machine without Evernote its ENEX files are listed as notebooks, from the next start on.</source>
        <translation>Evernote がないコンピュータでは、その中の ENEX ファイルが次回の起動からノートブックとして表示されます。</translation>
    </message>
    <message>
        <source>Only marked words in comments are tags</source>
        <translation>コメント内の印の付いた語だけをタグにする</translation>
    </message>
    <message>
        <source>Open &amp;Log</source>
        <translation>ログを開く(&amp;L)</translation>
    </message>
    <message>
        <source>Open Li&amp;brary</source>
        <translation>ライブラリを開く(&amp;B)</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>Otherwise a web clip is made from what Evernote has kept of the page. Pages are fetched without your cookies and passwords.</source>
        <translation>オフの場合、Evernote に保存されている内容からウェブクリップを作ります。ページの取得に Cookie やパスワードは使われません。</translation>
    </message>
    <message>
        <source>Please ensure the latest version of Evernote is installed and try again.</source>
        <translation>最新バージョンの Evernote がインストールされていることを確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Preparing...</source>
        <translation>準備しています…</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Quillery 3.5 or later is required.</source>
        <translation>Quillery 3.5 以降が必要です。</translation>
    </message>
    <message>
        <source>Quillery app not found.</source>
        <translation>Quillery アプリケーションが見つかりません。</translation>
    </message>
    <message>
        <source>Quillery is ending and takes no more imports.</source>
        <translation>Quillery は終了処理中のため、これ以上読み込みを受け付けません。</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Read files of today's Evernote whole</source>
        <translation>現在の Evernote のファイルを完全に読む</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>理由</translation>
    </message>
    <message>
        <source>Recovered Items</source>
        <translation>復旧した項目</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>備考</translation>
    </message>
    <message>
        <source>Reminder: %1</source>
        <translation>リマインダー：%1</translation>
    </message>
    <message>
        <source>Repeats: %1</source>
        <translation>繰り返し：%1</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Search notebooks by name</source>
        <translation>ノートブックを名前で検索</translation>
    </message>
    <message>
        <source>Select the notebooks to import and try again.</source>
        <translation>読み込むノートブックを選択して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Show the ruler in imported notes</source>
        <translation>読み込んだノートにルーラを表示</translation>
    </message>
    <message>
        <source>Si&amp;ze:</source>
        <translation>サイズ(&amp;Z)：</translation>
    </message>
    <message>
        <source>Siz&amp;e:</source>
        <translation>サイズ(&amp;E)：</translation>
    </message>
    <message>
        <source>Skipped</source>
        <translation>スキップ</translation>
    </message>
    <message>
        <source>Skipped notes and remarks</source>
        <translation>スキップされたノートと備考</translation>
    </message>
    <message>
        <source>Some notes may be missing; the log tells more.</source>
        <translation>一部のノートが欠けている可能性があります。詳しくはログをご覧ください。</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>サウンド</translation>
    </message>
    <message>
        <source>Standard f&amp;ont:</source>
        <translation>標準フォント(&amp;O)：</translation>
    </message>
    <message>
        <source>Tasks that were lost because the file was read as it stands: %1.</source>
        <translation>ファイルをそのまま読んだために失われたタスク：%1。</translation>
    </message>
    <message>
        <source>Tasks: %1</source>
        <translation>タスク：%1</translation>
    </message>
    <message>
        <source>That is what Evernote means by them. Otherwise they are taken for the time on the clock.</source>
        <translation>Evernote はこの意味で書いています。オフの場合は時計の時刻として扱われます。</translation>
    </message>
    <message>
        <source>The Internet connection appears to be offline.</source>
        <translation>インターネットに接続されていないようです。</translation>
    </message>
    <message>
        <source>The address is not valid.</source>
        <translation>アドレスが無効です。</translation>
    </message>
    <message>
        <source>The address is of a kind that cannot be loaded.</source>
        <translation>この種類のアドレスは読み込めません。</translation>
    </message>
    <message>
        <source>The archive is damaged.</source>
        <translation>アーカイブが壊れています。</translation>
    </message>
    <message>
        <source>The attachment “%1” stands where the note shows nothing; it was left out.</source>
        <translation>添付ファイル「%1」はノートに表示されない位置にあるため、省かれました。</translation>
    </message>
    <message>
        <source>The attributes of “%1” are too large for its file system.</source>
        <translation>「%1」の属性は、ファイルシステムには大きすぎます。</translation>
    </message>
    <message>
        <source>The box in the first column checks or unchecks all notebooks shown.</source>
        <translation>最初の列のチェックボックスで、表示中のすべてのノートブックを切り替えます。</translation>
    </message>
    <message>
        <source>The catalogue of an interrupted import is damaged.</source>
        <translation>中断された読み込みのカタログが壊れています。</translation>
    </message>
    <message>
        <source>The connection to the session bus was lost before %1 answered.</source>
        <translation>%1 が応答する前にセッションバスとの接続が切れました。</translation>
    </message>
    <message>
        <source>The copy of the file could not be written: %1</source>
        <translation>ファイルの複製を書き込めませんでした：%1</translation>
    </message>
    <message>
        <source>The damaged settings cannot be kept.</source>
        <translation>壊れた設定を保管できません。</translation>
    </message>
    <message>
        <source>The document could not be repaired.</source>
        <translation>書類を修復できませんでした。</translation>
    </message>
    <message>
        <source>The document has no content.</source>
        <translation>書類に内容がありません。</translation>
    </message>
    <message>
        <source>The document is empty.</source>
        <translation>書類が空です。</translation>
    </message>
    <message>
        <source>The document is not well-formed</source>
        <translation>書類が整形式ではありません</translation>
    </message>
    <message>
        <source>The document, or a tag in it, is too large.</source>
        <translation>書類またはその中のタグが大きすぎます。</translation>
    </message>
    <message>
        <source>The encoding “%1” is not supported.</source>
        <translation>エンコーディング「%1」には対応していません。</translation>
    </message>
    <message>
        <source>The export “%1” could not be written: %2</source>
        <translation>書き出しファイル“%1”に書き込めませんでした: %2</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>ファイルがありません。</translation>
    </message>
    <message>
        <source>The file is a folder.</source>
        <translation>ファイルではなくフォルダです。</translation>
    </message>
    <message>
        <source>The file is indented, as today's Evernote writes it. Read as it stands, it loses dates, and tags gain empty entries.</source>
        <translation>このファイルは現在の Evernote の形式で字下げされています。そのまま読むと日付が失われ、タグに空の項目が加わります。</translation>
    </message>
    <message>
        <source>The file is of today's Evernote and was read whole, so that its dates, tags and tasks came across. The options can turn that off.</source>
        <translation>このファイルは現在の Evernote のもので、完全に読まれたため、日付、タグ、タスクが読み込まれました。オプションでオフにできます。</translation>
    </message>
    <message>
        <source>The file isn’t in the correct format.</source>
        <translation>ファイルの形式が正しくありません。</translation>
    </message>
    <message>
        <source>The file system does not keep the note's dates or tags on its file.</source>
        <translation>ファイルシステムがノートの日付またはタグを保持できません。</translation>
    </message>
    <message>
        <source>The file system of “%1” keeps no attributes.</source>
        <translation>「%1」のファイルシステムは属性を保持しません。</translation>
    </message>
    <message>
        <source>The file “%1” changed while it was read.</source>
        <translation>ファイル“%1”は読み込み中に変更されました。</translation>
    </message>
    <message>
        <source>The file “%1” could not be opened: %2.</source>
        <translation>ファイル「%1」を開けませんでした：%2。</translation>
    </message>
    <message>
        <source>The file “%1” could not be read: %2.</source>
        <translation>ファイル「%1」を読み込めませんでした：%2。</translation>
    </message>
    <message>
        <source>The file “%1” is empty.</source>
        <translation>ファイル「%1」は空です。</translation>
    </message>
    <message>
        <source>The import did not finish.</source>
        <translation>読み込みは完了しませんでした。</translation>
    </message>
    <message>
        <source>The import into “%1” could not be finished; the next one will do so: %2</source>
        <translation>「%1」への読み込みを完了できませんでした。次回に続けて処理されます：%2</translation>
    </message>
    <message>
        <source>The library “%1” lies in the files folder.</source>
        <translation>ライブラリ「%1」がファイルフォルダの中にあります。</translation>
    </message>
    <message>
        <source>The load failed.</source>
        <translation>読み込みに失敗しました。</translation>
    </message>
    <message>
        <source>The load was cancelled.</source>
        <translation>読み込みがキャンセルされました。</translation>
    </message>
    <message>
        <source>The manifest asks for “%1” to be removed, which is not its files folder.</source>
        <translation>マニフェストが、自身のファイルフォルダではない「%1」の削除を求めています。</translation>
    </message>
    <message>
        <source>The manifest is damaged: %1</source>
        <translation>マニフェストが壊れています：%1</translation>
    </message>
    <message>
        <source>The manifest names “%1”, which does not lie safely in its files folder.</source>
        <translation>マニフェストにある「%1」は、そのファイルフォルダに安全に収まっていません。</translation>
    </message>
    <message>
        <source>The manifest “%1” could not be read: %2</source>
        <translation>マニフェスト「%1」を読み込めませんでした：%2</translation>
    </message>
    <message>
        <source>The manifest “%1” was not written whole, so nothing can be imported from it. Perhaps the disk is full.</source>
        <translation>マニフェスト「%1」が最後まで書き込まれなかったため、何も読み込めません。ディスクがいっぱいの可能性があります。</translation>
    </message>
    <message>
        <source>The network connection was lost.</source>
        <translation>ネットワーク接続が切れました。</translation>
    </message>
    <message>
        <source>The note does not belong to a file of exported notes.</source>
        <translation>このノートは、書き出されたノートのファイルのものではありません。</translation>
    </message>
    <message>
        <source>The note's markup was malformed and has been repaired.</source>
        <translation>ノートのマークアップに誤りがあったため、修復しました。</translation>
    </message>
    <message>
        <source>The note's text could not be laid out and is missing: %1</source>
        <translation>ノートの本文をレイアウトできなかったため、欠けています：%1</translation>
    </message>
    <message>
        <source>The note's text does not show the attachment “%1”; it was left out.</source>
        <translation>ノートの本文に添付ファイル「%1」が表示されないため、省かれました。</translation>
    </message>
    <message>
        <source>The notebook is not there any more.</source>
        <translation>このノートブックはもうありません。</translation>
    </message>
    <message>
        <source>The notebook “%1” holds more notes than can be listed.</source>
        <translation>ノートブック「%1」には一覧にできる数を超えるノートがあります。</translation>
    </message>
    <message>
        <source>The operation could not be completed. (%1 error %2.)</source>
        <translation>操作を完了できませんでした。（%1 エラー %2）</translation>
    </message>
    <message>
        <source>The original of “%1” is not at “%2”.</source>
        <translation>「%1」のオリジナルは「%2」にありません。</translation>
    </message>
    <message>
        <source>The page could not be read.</source>
        <translation>ページを読み込めませんでした。</translation>
    </message>
    <message>
        <source>The page has more resources than are loaded.</source>
        <translation>ページのリソースが読み込み上限を超えています。</translation>
    </message>
    <message>
        <source>The page was loaded again; its attachment “%1” was left out.</source>
        <translation>ページを再読み込みしたため、添付ファイル「%1」は省かれました。</translation>
    </message>
    <message>
        <source>The page was loaded again; the note's tasks were left out: %1.</source>
        <translation>ページを再読み込みしたため、ノートのタスクは省かれました：%1。</translation>
    </message>
    <message>
        <source>The page “%1” could not be opened.</source>
        <translation>ページ「%1」を開けませんでした。</translation>
    </message>
    <message>
        <source>The parser was aborted.</source>
        <translation>解析が中止されました。</translation>
    </message>
    <message>
        <source>The property list is damaged.</source>
        <translation>プロパティリストが壊れています。</translation>
    </message>
    <message>
        <source>The property list is nested too deeply.</source>
        <translation>プロパティリストの入れ子が深すぎます。</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>要求がタイムアウトになりました。</translation>
    </message>
    <message>
        <source>The resource is too large.</source>
        <translation>リソースが大きすぎます。</translation>
    </message>
    <message>
        <source>The response could not be decoded.</source>
        <translation>応答をデコードできませんでした。</translation>
    </message>
    <message>
        <source>The server gave a response that was not understood.</source>
        <translation>サーバの応答を理解できませんでした。</translation>
    </message>
    <message>
        <source>The server redirected to an address that cannot be loaded.</source>
        <translation>サーバが読み込めないアドレスへリダイレクトしました。</translation>
    </message>
    <message>
        <source>The server sent no document.</source>
        <translation>サーバから書類が送られませんでした。</translation>
    </message>
    <message>
        <source>The setting could not be saved.</source>
        <translation>設定を保存できませんでした。</translation>
    </message>
    <message>
        <source>The settings folder cannot be made.</source>
        <translation>設定フォルダを作成できません。</translation>
    </message>
    <message numerus="yes">
        <source>There are %Ln remarks on notes that came across.</source>
        <translation>
            <numerusform>読み込まれたノートについて %Ln 件の備考があります。</numerusform>
        </translation>
    </message>
    <message>
        <source>There is no ENEX file to import.</source>
        <translation>読み込む ENEX ファイルがありません。</translation>
    </message>
    <message>
        <source>There is no permission to read the file.</source>
        <translation>ファイルを読み込むアクセス権がありません。</translation>
    </message>
    <message>
        <source>There is no session bus through which %1 could be reached.</source>
        <translation>%1 と通信するためのセッションバスがありません。</translation>
    </message>
    <message>
        <source>There were too many redirects.</source>
        <translation>リダイレクトが多すぎます。</translation>
    </message>
    <message>
        <source>They are added at the note's end. A web clip with such a document becomes a note.</source>
        <translation>ノートの末尾に追加されます。そのような書類を含むウェブクリップはノートになります。</translation>
    </message>
    <message>
        <source>This is no archived colour.</source>
        <translation>アーカイブされた色ではありません。</translation>
    </message>
    <message>
        <source>Times in ENEX files are in UTC</source>
        <translation>ENEX ファイルの時刻は UTC</translation>
    </message>
    <message>
        <source>To keep all of it, import the file again with the option “Read files of today's Evernote whole” (setting ModernENEX).</source>
        <translation>すべてを残すには、オプション「現在の Evernote のファイルを完全に読む」（設定 ModernENEX）をオンにして、もう一度ファイルを読み込んでください。</translation>
    </message>
    <message>
        <source>Two keys of a dictionary cannot be told apart.</source>
        <translation>辞書の 2 つのキーを区別できません。</translation>
    </message>
    <message>
        <source>Unable to create file wrapper for file at path: %@</source>
        <translation>次のパスのファイルのパッケージを作成できません: %@</translation>
    </message>
    <message>
        <source>Unable to create the temporary directory to export files.</source>
        <translation>ファイルを書き出す一時フォルダを作成できません。</translation>
    </message>
    <message>
        <source>Unable to find the Evernote application.</source>
        <translation>Evernote アプリケーションが見つかりません。</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>名称未設定</translation>
    </message>
    <message>
        <source>Use Default</source>
        <translation>デフォルトを使用</translation>
    </message>
    <message>
        <source>Vupuge</source>
        <translation>Vupuge</translation>
    </message>
    <message>
        <source>Vupuge %1</source>
        <translation>Vupuge %1</translation>
    </message>
    <message>
        <source>Wait until it has finished and try again.</source>
        <translation>終了するまで待ってから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Web Page</source>
        <translation>ウェブページ</translation>
    </message>
    <message>
        <source>Where nothing is chosen here, the choices made in Quillery hold.</source>
        <translation>ここで選択しない項目には、Quillery での設定が使われます。</translation>
    </message>
    <message>
        <source>Words are marked by @ or &amp;, and by the characters below. Otherwise every word of a comment without marks counts as a tag.</source>
        <translation>語には @ または &amp;、および下の文字で印を付けます。オフの場合、印のないコメントのすべての語がタグになります。</translation>
    </message>
    <message>
        <source>Write a detailed log</source>
        <translation>詳細なログを記録する</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>0 KB</translation>
    </message>
    <message>
        <source>[Missing Attachment]</source>
        <translation>[添付ファイルなし]</translation>
    </message>
    <message>
        <source>accepted</source>
        <translation>受け付けました</translation>
    </message>
    <message>
        <source>bad gateway</source>
        <translation>ゲートウェイが不正です</translation>
    </message>
    <message>
        <source>bad request</source>
        <translation>要求が不正です</translation>
    </message>
    <message>
        <source>client error</source>
        <translation>クライアントエラー</translation>
    </message>
    <message>
        <source>conflict</source>
        <translation>競合</translation>
    </message>
    <message>
        <source>created</source>
        <translation>作成されました</translation>
    </message>
    <message>
        <source>expectation failed</source>
        <translation>期待に応えられません</translation>
    </message>
    <message>
        <source>forbidden</source>
        <translation>禁止されています</translation>
    </message>
    <message>
        <source>found</source>
        <translation>見つかりました</translation>
    </message>
    <message>
        <source>gateway timed out</source>
        <translation>ゲートウェイがタイムアウトしました</translation>
    </message>
    <message>
        <source>informational</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>internal server error</source>
        <translation>サーバ内部エラー</translation>
    </message>
    <message>
        <source>it has no folder “%1”, which items belong to.</source>
        <translation>項目が属するフォルダ「%1」がありません。</translation>
    </message>
    <message>
        <source>it holds no entities.</source>
        <translation>エントリがありません。</translation>
    </message>
    <message>
        <source>its records are not in a dictionary.</source>
        <translation>レコードが辞書に入っていません。</translation>
    </message>
    <message>
        <source>length required</source>
        <translation>長さが必要です</translation>
    </message>
    <message>
        <source>method not allowed</source>
        <translation>許可されていないメソッドです</translation>
    </message>
    <message>
        <source>moved permanently</source>
        <translation>恒久的に移動しました</translation>
    </message>
    <message>
        <source>no content</source>
        <translation>内容がありません</translation>
    </message>
    <message>
        <source>no error</source>
        <translation>エラーなし</translation>
    </message>
    <message>
        <source>no longer exists</source>
        <translation>もう存在しません</translation>
    </message>
    <message>
        <source>none</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>見つかりません</translation>
    </message>
    <message>
        <source>not modified</source>
        <translation>変更されていません</translation>
    </message>
    <message>
        <source>payment required</source>
        <translation>支払いが必要です</translation>
    </message>
    <message>
        <source>precondition failed</source>
        <translation>前提条件を満たしていません</translation>
    </message>
    <message>
        <source>proxy authentication required</source>
        <translation>プロキシ認証が必要です</translation>
    </message>
    <message>
        <source>redirected</source>
        <translation>リダイレクトされました</translation>
    </message>
    <message>
        <source>request timed out</source>
        <translation>要求がタイムアウトしました</translation>
    </message>
    <message>
        <source>request too large</source>
        <translation>要求が大きすぎます</translation>
    </message>
    <message>
        <source>requested URL too long</source>
        <translation>要求された URL が長すぎます</translation>
    </message>
    <message>
        <source>requested range not satisfiable</source>
        <translation>要求された範囲に対応できません</translation>
    </message>
    <message>
        <source>server error</source>
        <translation>サーバエラー</translation>
    </message>
    <message>
        <source>service unavailable</source>
        <translation>サービスを利用できません</translation>
    </message>
    <message>
        <source>success</source>
        <translation>成功</translation>
    </message>
    <message>
        <source>too many requests</source>
        <translation>要求が多すぎます</translation>
    </message>
    <message>
        <source>unacceptable</source>
        <translation>受け付けられません</translation>
    </message>
    <message>
        <source>unauthorized</source>
        <translation>認証が必要です</translation>
    </message>
    <message>
        <source>unimplemented</source>
        <translation>実装されていません</translation>
    </message>
    <message>
        <source>unsupported media type</source>
        <translation>対応していないメディアタイプです</translation>
    </message>
    <message>
        <source>unsupported version</source>
        <translation>対応していないバージョンです</translation>
    </message>
    <message>
        <source>“%1” cannot be said to %2.</source>
        <translation>「%1」を %2 に伝えることができません。</translation>
    </message>
    <message>
        <source>“%1” cannot be taken twice.</source>
        <translation>「%1」を二度取り込むことはできません。</translation>
    </message>
    <message>
        <source>“%1” could not be imported: %2</source>
        <translation>「%1」を読み込めませんでした：%2</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <translation>「%1」を読み込めませんでした：%2。</translation>
    </message>
    <message>
        <source>“%1” could not be written: %2.</source>
        <translation>「%1」を書き込めませんでした：%2。</translation>
    </message>
    <message>
        <source>“%1” holds no catalogue that this version reads.</source>
        <translation>「%1」には、このバージョンで読めるカタログがありません。</translation>
    </message>
    <message>
        <source>“%1” is gone: its files were removed before the import was finished.</source>
        <translation>「%1」はなくなっています。読み込みの完了前にファイルが削除されました。</translation>
    </message>
    <message>
        <source>“%1” is not UTF-8 text.</source>
        <translation>「%1」は UTF-8 テキストではありません。</translation>
    </message>
    <message>
        <source>“%1” is not a folder's record.</source>
        <translation>「%1」はフォルダのレコードではありません。</translation>
    </message>
    <message>
        <source>“%1” is not an alias.</source>
        <translation>「%1」はエイリアスではありません。</translation>
    </message>
    <message>
        <source>“%1” is not an import manifest.</source>
        <translation>「%1」は読み込みマニフェストではありません。</translation>
    </message>
    <message>
        <source>“%1” is not an item's record.</source>
        <translation>「%1」は項目のレコードではありません。</translation>
    </message>
    <message>
        <source>“%1” is not the name of a file in “%2”.</source>
        <translation>「%1」は「%2」にあるファイルの名前ではありません。</translation>
    </message>
</context>
</TS>

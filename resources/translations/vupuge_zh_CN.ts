<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Vupuge</name>
    <message>
        <source> %</source>
        <translation>%</translation>
    </message>
    <message>
        <source> points</source>
        <translation> 磅</translation>
    </message>
    <message>
        <source>%1 (cannot be read)</source>
        <translation>%1（无法读取）</translation>
    </message>
    <message>
        <source>%1 as they were</source>
        <translation>%1 个保持不变</translation>
    </message>
    <message>
        <source>%1 as to-do lines</source>
        <translation>%1 项成为待办行</translation>
    </message>
    <message>
        <source>%1 at line %2, column %3</source>
        <translation>%1（第 %2 行，第 %3 列）</translation>
    </message>
    <message>
        <source>%1 could not be started: %2</source>
        <translation>无法启动 %1：%2</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>%1 没有答复。</translation>
    </message>
    <message>
        <source>%1 does not understand what it was asked (%2).</source>
        <translation>%1 无法理解该请求（%2）。</translation>
    </message>
    <message>
        <source>%1 ended before it answered.</source>
        <translation>%1 在答复之前已退出。</translation>
    </message>
    <message>
        <source>%1 gave an answer that cannot be understood (%2).</source>
        <translation>无法理解 %1 的答复（%2）。</translation>
    </message>
    <message>
        <source>%1 imported</source>
        <translation>%1 篇已导入</translation>
    </message>
    <message>
        <source>%1 in skipped notes</source>
        <translation>%1 个在已跳过的笔记中</translation>
    </message>
    <message>
        <source>%1 is neither running nor installed.</source>
        <translation>%1 既未运行，也未安装。</translation>
    </message>
    <message>
        <source>%1 items could not be imported. The first is “%2”: %3</source>
        <translation>%1 个项目无法导入。第一个是“%2”：%3</translation>
    </message>
    <message>
        <source>%1 kept at the end of their notes</source>
        <translation>%1 个保留在笔记末尾</translation>
    </message>
    <message>
        <source>%1 lead to imported notes</source>
        <translation>%1 个指向已导入的笔记</translation>
    </message>
    <message>
        <source>%1 left out</source>
        <translation>%1 个已略去</translation>
    </message>
    <message>
        <source>%1 not imported</source>
        <translation>%1 篇未导入</translation>
    </message>
    <message>
        <source>%1 refused what it was asked (%2).</source>
        <translation>%1 拒绝了该请求（%2）。</translation>
    </message>
    <message>
        <source>%1 shown</source>
        <translation>%1 个已显示</translation>
    </message>
    <message>
        <source>%1 skipped</source>
        <translation>%1 篇已跳过</translation>
    </message>
    <message>
        <source>%1$@ of %2$@</source>
        <translation>%1$@，共 %2$@</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%@/sec</source>
        <translation>%@/秒</translation>
    </message>
    <message numerus="yes">
        <source>%Ln notebooks checked</source>
        <translation>
            <numerusform>已勾选 %Ln 个笔记本</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes</source>
        <translation>
            <numerusform>%Ln 条笔记</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were imported.</source>
        <translation>
            <numerusform>已导入 %Ln 条笔记。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were skipped.</source>
        <translation>
            <numerusform>已跳过 %Ln 条笔记。</numerusform>
        </translation>
    </message>
    <message>
        <source>%ld day remaining</source>
        <translation>剩余 %ld 天</translation>
    </message>
    <message>
        <source>%ld days remaining</source>
        <translation>剩余 %ld 天</translation>
    </message>
    <message>
        <source>%ld hour remaining</source>
        <translation>剩余 %ld 小时</translation>
    </message>
    <message>
        <source>%ld hours remaining</source>
        <translation>剩余 %ld 小时</translation>
    </message>
    <message>
        <source>%ld minute remaining</source>
        <translation>剩余 %ld 分钟</translation>
    </message>
    <message>
        <source>%ld minutes remaining</source>
        <translation>剩余 %ld 分钟</translation>
    </message>
    <message>
        <source>%ld second remaining</source>
        <translation>剩余 %ld 秒</translation>
    </message>
    <message>
        <source>%ld seconds remaining</source>
        <translation>剩余 %ld 秒</translation>
    </message>
    <message>
        <source>%lu notes exported</source>
        <translation>已导出 %lu 条笔记</translation>
    </message>
    <message>
        <source>%lu of %lu notes exported</source>
        <translation>已导出 %lu 条笔记，共 %lu 条</translation>
    </message>
    <message>
        <source>&amp;About Vupuge</source>
        <translation>关于 Vupuge(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Background colour:</source>
        <translation>背景颜色(&amp;B)：</translation>
    </message>
    <message>
        <source>&amp;Check All Notebooks</source>
        <translation>勾选所有笔记本(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>完成(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;ENEX Files</source>
        <translation>ENEX 文件(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Find Notebook</source>
        <translation>查找笔记本(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Font:</source>
        <translation>字体(&amp;F)：</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>导入(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Notebooks to import:</source>
        <translation>要导入的笔记本(&amp;N)：</translation>
    </message>
    <message>
        <source>&amp;Notes</source>
        <translation>笔记(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>选项(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Read files of today's Evernote whole</source>
        <translation>完整读取当前版 Evernote 的文件(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Release Notes</source>
        <translation>发行说明(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Restore Defaults</source>
        <translation>恢复默认设置(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Text colour:</source>
        <translation>文字颜色(&amp;T)：</translation>
    </message>
    <message>
        <source>&amp;Uncheck All Notebooks</source>
        <translation>取消勾选所有笔记本(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Web Pages</source>
        <translation>网页(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Zoom:</source>
        <translation>缩放(&amp;Z)：</translation>
    </message>
    <message>
        <source>A date is too far off for an XML property list.</source>
        <translation>日期对 XML 属性列表来说过于久远。</translation>
    </message>
    <message>
        <source>A date of the note is damaged and was left out.</source>
        <translation>笔记的一个日期已损坏，已略去。</translation>
    </message>
    <message>
        <source>A library folder takes no destination, rating, comments, label or tags.</source>
        <translation>资料库文件夹不接受目标位置、评分、注释、标记或标签。</translation>
    </message>
    <message>
        <source>A link is changed where its text is the title of exactly one note of the file. All others keep leading to Evernote.</source>
        <translation>当链接文字恰好是文件中唯一一篇笔记的标题时，链接会被更改。其他链接仍指向 Evernote。</translation>
    </message>
    <message>
        <source>A note is not there any more.</source>
        <translation>有一条笔记已不存在。</translation>
    </message>
    <message>
        <source>A secure connection to the server could not be made.</source>
        <translation>无法与服务器建立安全连接。</translation>
    </message>
    <message>
        <source>A server with the specified host name could not be found.</source>
        <translation>找不到指定主机名的服务器。</translation>
    </message>
    <message>
        <source>A tag with more than %1 attributes</source>
        <translation>标签的属性超过 %1 个</translation>
    </message>
    <message>
        <source>A value has no place in a property list.</source>
        <translation>有值不能放入属性列表。</translation>
    </message>
    <message>
        <source>An error occurred while exporting.</source>
        <translation>导出时出错。</translation>
    </message>
    <message>
        <source>An older way of getting notes out of Evernote, one file for each note. ENEX keeps more.</source>
        <translation>从 Evernote 导出笔记的旧方式，每条笔记一个文件。ENEX 保留的内容更多。</translation>
    </message>
    <message>
        <source>An unknown error occurred.</source>
        <translation>发生未知错误。</translation>
    </message>
    <message>
        <source>Another import is running.</source>
        <translation>另一个导入正在进行。</translation>
    </message>
    <message>
        <source>Another note has the same link; only that one was kept.</source>
        <translation>另一条笔记具有相同的链接；只保留了那一条。</translation>
    </message>
    <message>
        <source>Attachments that the files do not hold: %1</source>
        <translation>文件中不含的附件：%1</translation>
    </message>
    <message>
        <source>Attachments that the note shows but the file does not hold: %1.</source>
        <translation>笔记中显示但文件中没有的附件：%1。</translation>
    </message>
    <message>
        <source>Attachments: %1</source>
        <translation>附件：%1</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>书签</translation>
    </message>
    <message>
        <source>Brings Evernote notes into Quillery.</source>
        <translation>将 Evernote 笔记导入 Quillery。</translation>
    </message>
    <message>
        <source>C&amp;hoose Folder...</source>
        <translation>选择文件夹(&amp;H)…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <translation>正在取消…</translation>
    </message>
    <message>
        <source>Cannot create input stream.</source>
        <translation>无法创建输入流。</translation>
    </message>
    <message>
        <source>Cannot create parser.</source>
        <translation>无法创建解析器。</translation>
    </message>
    <message>
        <source>Cannot parse "%@" data.</source>
        <translation>无法解析“%@”的数据。</translation>
    </message>
    <message>
        <source>Choose &amp;Folder...</source>
        <translation>选择文件夹(&amp;F)…</translation>
    </message>
    <message>
        <source>Choose ENEX File...</source>
        <translation>选择 ENEX 文件…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Code: %ld</source>
        <translation>代码：%ld</translation>
    </message>
    <message>
        <source>Could not connect to the server.</source>
        <translation>无法连接服务器。</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>默认</translation>
    </message>
    <message>
        <source>Default (%1)</source>
        <translation>默认（%1）</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>文稿</translation>
    </message>
    <message>
        <source>Drop an ENEX file here</source>
        <translation>将 ENEX 文件拖放到此处</translation>
    </message>
    <message>
        <source>Due: %1</source>
        <translation>截止：%1</translation>
    </message>
    <message>
        <source>Elements within more than %1 others</source>
        <translation>元素嵌套超过 %1 层</translation>
    </message>
    <message>
        <source>Encrypted passages, which cannot be read: %1. Asterisks stand in their place.</source>
        <translation>无法读取的加密内容：%1。以星号代替。</translation>
    </message>
    <message>
        <source>Encrypted passages: %1</source>
        <translation>加密内容：%1</translation>
    </message>
    <message>
        <source>Evernote 10 and later write ENEX files in a new way. Read as they stand, such files lose dates and tasks, and tags gain empty entries. Files that are dropped on the window are recognized as long as nothing is chosen here.</source>
        <translation>Evernote 10 及更高版本以新方式写 ENEX 文件。若按原样读取，日期和任务会丢失，标签会多出空条目。只要未在此处作出选择，拖到窗口上的文件就会被自动识别。</translation>
    </message>
    <message>
        <source>Evernote 5.2.0 or later is required.</source>
        <translation>需要 Evernote 5.2.0 或更高版本。</translation>
    </message>
    <message>
        <source>Evernote did not export this note.</source>
        <translation>Evernote 没有导出此笔记。</translation>
    </message>
    <message>
        <source>Evernote export files (%1)</source>
        <translation>Evernote 导出文件 (%1)</translation>
    </message>
    <message>
        <source>Everything came across.</source>
        <translation>全部导入成功。</translation>
    </message>
    <message>
        <source>Everything that is made of each note stands in the log of the next import.</source>
        <translation>下次导入的日志会记录每条笔记的全部转换结果。</translation>
    </message>
    <message>
        <source>Export notes from Evernote in the format ENEX and try again.</source>
        <translation>请从 Evernote 以 ENEX 格式导出笔记，然后重试。</translation>
    </message>
    <message>
        <source>Exported files in the folder “%1” are listed here as notebooks.</source>
        <translation>文件夹“%1”中的导出文件会在此处列为笔记本。</translation>
    </message>
    <message>
        <source>Exporting Notes</source>
        <translation>正在导出笔记</translation>
    </message>
    <message>
        <source>Exporting notes from "%@"</source>
        <translation>正在从“%@”导出笔记</translation>
    </message>
    <message>
        <source>Exports Folder</source>
        <translation>导出文件夹</translation>
    </message>
    <message>
        <source>Exports folder:</source>
        <translation>导出文件夹：</translation>
    </message>
    <message>
        <source>Fi&amp;xed-pitch font:</source>
        <translation>等宽字体(&amp;X)：</translation>
    </message>
    <message>
        <source>Files to import, and folders that hold such files.</source>
        <translation>要导入的文件，以及包含此类文件的文件夹。</translation>
    </message>
    <message>
        <source>Flagged</source>
        <translation>已标记</translation>
    </message>
    <message>
        <source>Font &amp;size:</source>
        <translation>字号(&amp;S)：</translation>
    </message>
    <message>
        <source>Getting notebook names...</source>
        <translation>正在获取笔记本名称…</translation>
    </message>
    <message>
        <source>Have Evernote export notes as HTML</source>
        <translation>让 Evernote 以 HTML 格式导出笔记</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>导入</translation>
    </message>
    <message>
        <source>Import ENEX Fi&amp;le...</source>
        <translation>导入 ENEX 文件(&amp;L)…</translation>
    </message>
    <message>
        <source>Import ENEX File</source>
        <translation>导入 ENEX 文件</translation>
    </message>
    <message>
        <source>Import “%1”</source>
        <translation>导入“%1”</translation>
    </message>
    <message>
        <source>Imported from Evernote, %@</source>
        <translation>从 Evernote 导入，%@</translation>
    </message>
    <message>
        <source>In Evernote, choose a notebook, then “Export Notebook…” and the format ENEX. Drop the file that you get on this window, or choose it here.</source>
        <translation>在 Evernote 中选择一个笔记本，然后选择“导出笔记本…”和 ENEX 格式。将得到的文件拖放到此窗口，或在此处选择。</translation>
    </message>
    <message>
        <source>Initializing Evernote...</source>
        <translation>正在初始化 Evernote…</translation>
    </message>
    <message>
        <source>Invalid content data for resource.</source>
        <translation>资源的内容数据无效。</translation>
    </message>
    <message>
        <source>Invalid crypt tag.</source>
        <translation>加密标签无效。</translation>
    </message>
    <message>
        <source>Invalid media tag.</source>
        <translation>媒体标签无效。</translation>
    </message>
    <message>
        <source>Invalid todo tag.</source>
        <translation>待办标签无效。</translation>
    </message>
    <message>
        <source>It does not reach to its end.</source>
        <translation>内容不完整。</translation>
    </message>
    <message>
        <source>Keep attachments that a note's text does not show</source>
        <translation>保留笔记正文未显示的附件</translation>
    </message>
    <message>
        <source>Keeps dates, tags and tasks of files that Evernote 10 or later has written.</source>
        <translation>保留由 Evernote 10 或更高版本写出的文件中的日期、标签和任务。</translation>
    </message>
    <message>
        <source>Library Folder</source>
        <translation>资料库文件夹</translation>
    </message>
    <message>
        <source>Library folder:</source>
        <translation>资料库文件夹：</translation>
    </message>
    <message>
        <source>Links between notes lead to the imported notes</source>
        <translation>笔记间的链接指向已导入的笔记</translation>
    </message>
    <message>
        <source>Links between notes: %1</source>
        <translation>笔记间的链接：%1</translation>
    </message>
    <message>
        <source>Links that lead to notes which were skipped: %1.</source>
        <translation>指向已跳过笔记的链接：%1。</translation>
    </message>
    <message>
        <source>Load clipped pages from the web again</source>
        <translation>从网络重新加载剪藏的网页</translation>
    </message>
    <message>
        <source>Loading notebooks</source>
        <translation>正在加载笔记本</translation>
    </message>
    <message>
        <source>Mark captured pages for Java</source>
        <translation>将捕获的网页标记为启用 Java</translation>
    </message>
    <message>
        <source>Mark captured pages for JavaScript</source>
        <translation>将捕获的网页标记为启用 JavaScript</translation>
    </message>
    <message>
        <source>Mark captured pages for plug-ins</source>
        <translation>将捕获的网页标记为启用插件</translation>
    </message>
    <message>
        <source>More marks of tags:</source>
        <translation>其他标签标记：</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>影片</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>新建笔记</translation>
    </message>
    <message>
        <source>Next File</source>
        <translation>下一个文件</translation>
    </message>
    <message>
        <source>No content data for resource.</source>
        <translation>资源没有内容数据。</translation>
    </message>
    <message>
        <source>No notebooks selected!</source>
        <translation>未选择笔记本！</translation>
    </message>
    <message>
        <source>Not everything that the files hold came across.</source>
        <translation>文件中的内容并未全部导入。</translation>
    </message>
    <message>
        <source>Not imported</source>
        <translation>未导入</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>笔记</translation>
    </message>
    <message>
        <source>Notebook</source>
        <translation>笔记本</translation>
    </message>
    <message>
        <source>Notebooks</source>
        <translation>笔记本</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>笔记数</translation>
    </message>
    <message>
        <source>Notes go here on a machine without Quillery.</source>
        <translation>在没有 Quillery 的电脑上，笔记存放在此处。</translation>
    </message>
    <message>
        <source>Notes: %1</source>
        <translation>笔记：%1</translation>
    </message>
    <message>
        <source>Nothing could be imported into “%1”: %2</source>
        <translation>无法向“%1”导入任何内容：%2</translation>
    </message>
    <message>
        <source>Nothing in a page is ever run while it is captured, whatever is chosen here.</source>
        <translation>无论此处如何选择，捕获时都不会运行网页中的任何内容。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>好</translation>
    </message>
    <message>
        <source>Objects are nested too deeply.</source>
        <translation>对象嵌套过深。</translation>
    </message>
    <message>
        <source>On a machine without Evernote its ENEX files are listed as notebooks, from the next start on.</source>
        <translation>在没有 Evernote 的电脑上，其中的 ENEX 文件会从下次启动起列为笔记本。</translation>
    </message>
    <message>
        <source>Only marked words in comments are tags</source>
        <translation>仅将注释中带标记的词作为标签</translation>
    </message>
    <message>
        <source>Open &amp;Log</source>
        <translation>打开日志(&amp;L)</translation>
    </message>
    <message>
        <source>Open Li&amp;brary</source>
        <translation>打开资料库(&amp;B)</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Otherwise a web clip is made from what Evernote has kept of the page. Pages are fetched without your cookies and passwords.</source>
        <translation>否则将根据 Evernote 保存的页面内容生成网页剪藏。获取网页时不使用您的 Cookie 和密码。</translation>
    </message>
    <message>
        <source>Please ensure the latest version of Evernote is installed and try again.</source>
        <translation>请确保已安装最新版本的 Evernote，然后重试。</translation>
    </message>
    <message>
        <source>Preparing...</source>
        <translation>正在准备…</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>Quillery 3.5 or later is required.</source>
        <translation>需要 Quillery 3.5 或更高版本。</translation>
    </message>
    <message>
        <source>Quillery app not found.</source>
        <translation>找不到 Quillery 应用程序。</translation>
    </message>
    <message>
        <source>Quillery is ending and takes no more imports.</source>
        <translation>Quillery 正在退出，不再接受导入。</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Read files of today's Evernote whole</source>
        <translation>完整读取当前版 Evernote 的文件</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>Recovered Items</source>
        <translation>恢复的项目</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>备注</translation>
    </message>
    <message>
        <source>Reminder: %1</source>
        <translation>提醒：%1</translation>
    </message>
    <message>
        <source>Repeats: %1</source>
        <translation>重复：%1</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Search notebooks by name</source>
        <translation>按名称搜索笔记本</translation>
    </message>
    <message>
        <source>Select the notebooks to import and try again.</source>
        <translation>请选择要导入的笔记本，然后重试。</translation>
    </message>
    <message>
        <source>Show the ruler in imported notes</source>
        <translation>在导入的笔记中显示标尺</translation>
    </message>
    <message>
        <source>Si&amp;ze:</source>
        <translation>大小(&amp;Z)：</translation>
    </message>
    <message>
        <source>Siz&amp;e:</source>
        <translation>大小(&amp;E)：</translation>
    </message>
    <message>
        <source>Skipped</source>
        <translation>已跳过</translation>
    </message>
    <message>
        <source>Skipped notes and remarks</source>
        <translation>已跳过的笔记和备注</translation>
    </message>
    <message>
        <source>Some notes may be missing; the log tells more.</source>
        <translation>可能缺少部分笔记；详情请见日志。</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>声音</translation>
    </message>
    <message>
        <source>Standard f&amp;ont:</source>
        <translation>标准字体(&amp;O)：</translation>
    </message>
    <message>
        <source>Tasks that were lost because the file was read as it stands: %1.</source>
        <translation>因按原样读取文件而丢失的任务：%1。</translation>
    </message>
    <message>
        <source>Tasks: %1</source>
        <translation>任务：%1</translation>
    </message>
    <message>
        <source>That is what Evernote means by them. Otherwise they are taken for the time on the clock.</source>
        <translation>Evernote 即如此使用。否则视为本地钟表时间。</translation>
    </message>
    <message>
        <source>The Internet connection appears to be offline.</source>
        <translation>互联网连接似乎已断开。</translation>
    </message>
    <message>
        <source>The address is not valid.</source>
        <translation>地址无效。</translation>
    </message>
    <message>
        <source>The address is of a kind that cannot be loaded.</source>
        <translation>无法加载此类地址。</translation>
    </message>
    <message>
        <source>The archive is damaged.</source>
        <translation>归档已损坏。</translation>
    </message>
    <message>
        <source>The attachment “%1” stands where the note shows nothing; it was left out.</source>
        <translation>附件“%1”位于笔记不显示的位置，已将其略去。</translation>
    </message>
    <message>
        <source>The attributes of “%1” are too large for its file system.</source>
        <translation>“%1”的属性对其文件系统来说过大。</translation>
    </message>
    <message>
        <source>The box in the first column checks or unchecks all notebooks shown.</source>
        <translation>第一列中的复选框可勾选或取消勾选所有显示的笔记本。</translation>
    </message>
    <message>
        <source>The catalogue of an interrupted import is damaged.</source>
        <translation>中断的导入的目录已损坏。</translation>
    </message>
    <message>
        <source>The connection to the session bus was lost before %1 answered.</source>
        <translation>在 %1 答复之前，与会话总线的连接已断开。</translation>
    </message>
    <message>
        <source>The copy of the file could not be written: %1</source>
        <translation>无法写入文件的副本：%1</translation>
    </message>
    <message>
        <source>The damaged settings cannot be kept.</source>
        <translation>无法保留已损坏的设置。</translation>
    </message>
    <message>
        <source>The document could not be repaired.</source>
        <translation>无法修复文稿。</translation>
    </message>
    <message>
        <source>The document has no content.</source>
        <translation>文稿没有内容。</translation>
    </message>
    <message>
        <source>The document is empty.</source>
        <translation>文稿为空。</translation>
    </message>
    <message>
        <source>The document is not well-formed</source>
        <translation>文稿格式不正确</translation>
    </message>
    <message>
        <source>The document, or a tag in it, is too large.</source>
        <translation>文稿或其中的标签过大。</translation>
    </message>
    <message>
        <source>The encoding “%1” is not supported.</source>
        <translation>不支持编码“%1”。</translation>
    </message>
    <message>
        <source>The export “%1” could not be written: %2</source>
        <translation>无法写入导出“%1”：%2</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>文件不存在。</translation>
    </message>
    <message>
        <source>The file is a folder.</source>
        <translation>该文件是文件夹。</translation>
    </message>
    <message>
        <source>The file is indented, as today's Evernote writes it. Read as it stands, it loses dates, and tags gain empty entries.</source>
        <translation>此文件带有缩进，是当前版 Evernote 的写法。按原样读取会丢失日期，标签会多出空条目。</translation>
    </message>
    <message>
        <source>The file is of today's Evernote and was read whole, so that its dates, tags and tasks came across. The options can turn that off.</source>
        <translation>此文件来自当前版 Evernote，已完整读取，其日期、标签和任务均已导入。可在选项中关闭。</translation>
    </message>
    <message>
        <source>The file isn’t in the correct format.</source>
        <translation>文件格式不正确。</translation>
    </message>
    <message>
        <source>The file system does not keep the note's dates or tags on its file.</source>
        <translation>文件系统无法保存笔记的日期或标签。</translation>
    </message>
    <message>
        <source>The file system of “%1” keeps no attributes.</source>
        <translation>“%1”所在的文件系统不保存属性。</translation>
    </message>
    <message>
        <source>The file “%1” changed while it was read.</source>
        <translation>文件“%1”在读取过程中发生了更改。</translation>
    </message>
    <message>
        <source>The file “%1” could not be opened: %2.</source>
        <translation>无法打开文件“%1”：%2。</translation>
    </message>
    <message>
        <source>The file “%1” could not be read: %2.</source>
        <translation>无法读取文件“%1”：%2。</translation>
    </message>
    <message>
        <source>The file “%1” is empty.</source>
        <translation>文件“%1”为空。</translation>
    </message>
    <message>
        <source>The import did not finish.</source>
        <translation>导入未完成。</translation>
    </message>
    <message>
        <source>The import into “%1” could not be finished; the next one will do so: %2</source>
        <translation>无法完成向“%1”的导入；下次导入时将继续：%2</translation>
    </message>
    <message>
        <source>The library “%1” lies in the files folder.</source>
        <translation>资料库“%1”位于文件夹内。</translation>
    </message>
    <message>
        <source>The load failed.</source>
        <translation>加载失败。</translation>
    </message>
    <message>
        <source>The load was cancelled.</source>
        <translation>加载已取消。</translation>
    </message>
    <message>
        <source>The manifest asks for “%1” to be removed, which is not its files folder.</source>
        <translation>清单要求移除“%1”，而它不是清单的文件夹。</translation>
    </message>
    <message>
        <source>The manifest is damaged: %1</source>
        <translation>清单已损坏：%1</translation>
    </message>
    <message>
        <source>The manifest names “%1”, which does not lie safely in its files folder.</source>
        <translation>清单中的“%1”不在其文件夹的安全范围内。</translation>
    </message>
    <message>
        <source>The manifest “%1” could not be read: %2</source>
        <translation>无法读取清单“%1”：%2</translation>
    </message>
    <message>
        <source>The manifest “%1” was not written whole, so nothing can be imported from it. Perhaps the disk is full.</source>
        <translation>清单“%1”未完整写入，因此无法从中导入任何内容。磁盘可能已满。</translation>
    </message>
    <message>
        <source>The network connection was lost.</source>
        <translation>网络连接已断开。</translation>
    </message>
    <message>
        <source>The note does not belong to a file of exported notes.</source>
        <translation>该笔记不属于任何导出的笔记文件。</translation>
    </message>
    <message>
        <source>The note's markup was malformed and has been repaired.</source>
        <translation>笔记的标记有误，已修复。</translation>
    </message>
    <message>
        <source>The note's text could not be laid out and is missing: %1</source>
        <translation>无法排版笔记正文，正文缺失：%1</translation>
    </message>
    <message>
        <source>The note's text does not show the attachment “%1”; it was left out.</source>
        <translation>笔记正文未显示附件“%1”，已将其略去。</translation>
    </message>
    <message>
        <source>The notebook is not there any more.</source>
        <translation>该笔记本已不存在。</translation>
    </message>
    <message>
        <source>The notebook “%1” holds more notes than can be listed.</source>
        <translation>笔记本“%1”中的笔记数量超出了可列出的上限。</translation>
    </message>
    <message>
        <source>The operation could not be completed. (%1 error %2.)</source>
        <translation>操作无法完成。（%1 错误 %2。）</translation>
    </message>
    <message>
        <source>The original of “%1” is not at “%2”.</source>
        <translation>“%1”的原件不在“%2”。</translation>
    </message>
    <message>
        <source>The page could not be read.</source>
        <translation>无法读取网页。</translation>
    </message>
    <message>
        <source>The page has more resources than are loaded.</source>
        <translation>网页的资源超过加载上限。</translation>
    </message>
    <message>
        <source>The page was loaded again; its attachment “%1” was left out.</source>
        <translation>网页已重新加载；其附件“%1”已略去。</translation>
    </message>
    <message>
        <source>The page was loaded again; the note's tasks were left out: %1.</source>
        <translation>网页已重新加载；笔记的任务已略去：%1。</translation>
    </message>
    <message>
        <source>The page “%1” could not be opened.</source>
        <translation>无法打开网页“%1”。</translation>
    </message>
    <message>
        <source>The parser was aborted.</source>
        <translation>解析已中止。</translation>
    </message>
    <message>
        <source>The property list is damaged.</source>
        <translation>属性列表已损坏。</translation>
    </message>
    <message>
        <source>The property list is nested too deeply.</source>
        <translation>属性列表嵌套过深。</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>请求超时。</translation>
    </message>
    <message>
        <source>The resource is too large.</source>
        <translation>资源过大。</translation>
    </message>
    <message>
        <source>The response could not be decoded.</source>
        <translation>无法解码响应。</translation>
    </message>
    <message>
        <source>The server gave a response that was not understood.</source>
        <translation>无法理解服务器的响应。</translation>
    </message>
    <message>
        <source>The server redirected to an address that cannot be loaded.</source>
        <translation>服务器重定向到无法加载的地址。</translation>
    </message>
    <message>
        <source>The server sent no document.</source>
        <translation>服务器未发送文稿。</translation>
    </message>
    <message>
        <source>The setting could not be saved.</source>
        <translation>无法存储设置。</translation>
    </message>
    <message>
        <source>The settings folder cannot be made.</source>
        <translation>无法创建设置文件夹。</translation>
    </message>
    <message numerus="yes">
        <source>There are %Ln remarks on notes that came across.</source>
        <translation>
            <numerusform>已导入的笔记有 %Ln 条备注。</numerusform>
        </translation>
    </message>
    <message>
        <source>There is no ENEX file to import.</source>
        <translation>没有可导入的 ENEX 文件。</translation>
    </message>
    <message>
        <source>There is no permission to read the file.</source>
        <translation>没有读取该文件的权限。</translation>
    </message>
    <message>
        <source>There is no session bus through which %1 could be reached.</source>
        <translation>没有可用于连接 %1 的会话总线。</translation>
    </message>
    <message>
        <source>There were too many redirects.</source>
        <translation>重定向次数过多。</translation>
    </message>
    <message>
        <source>They are added at the note's end. A web clip with such a document becomes a note.</source>
        <translation>它们会添加到笔记末尾。带有此类文档的网页剪藏会变成笔记。</translation>
    </message>
    <message>
        <source>This is no archived colour.</source>
        <translation>这不是归档的颜色。</translation>
    </message>
    <message>
        <source>Times in ENEX files are in UTC</source>
        <translation>ENEX 文件中的时间为 UTC</translation>
    </message>
    <message>
        <source>To keep all of it, import the file again with the option “Read files of today's Evernote whole” (setting ModernENEX).</source>
        <translation>要全部保留，请启用选项“完整读取当前版 Evernote 的文件”（设置 ModernENEX）后重新导入该文件。</translation>
    </message>
    <message>
        <source>Two keys of a dictionary cannot be told apart.</source>
        <translation>字典中的两个键无法区分。</translation>
    </message>
    <message>
        <source>Unable to create file wrapper for file at path: %@</source>
        <translation>无法为以下路径的文件创建文件包：%@</translation>
    </message>
    <message>
        <source>Unable to create the temporary directory to export files.</source>
        <translation>无法创建用于导出文件的临时文件夹。</translation>
    </message>
    <message>
        <source>Unable to find the Evernote application.</source>
        <translation>找不到 Evernote 应用程序。</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>Use Default</source>
        <translation>使用默认值</translation>
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
        <translation>请等待其完成后重试。</translation>
    </message>
    <message>
        <source>Web Page</source>
        <translation>网页</translation>
    </message>
    <message>
        <source>Where nothing is chosen here, the choices made in Quillery hold.</source>
        <translation>此处未选择的项目沿用 Quillery 中的设置。</translation>
    </message>
    <message>
        <source>Words are marked by @ or &amp;, and by the characters below. Otherwise every word of a comment without marks counts as a tag.</source>
        <translation>词语以 @ 或 &amp; 以及下面的字符标记。否则，没有标记的注释中的每个词都算作标签。</translation>
    </message>
    <message>
        <source>Write a detailed log</source>
        <translation>写入详细日志</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>零 KB</translation>
    </message>
    <message>
        <source>[Missing Attachment]</source>
        <translation>[缺少附件]</translation>
    </message>
    <message>
        <source>accepted</source>
        <translation>已接受</translation>
    </message>
    <message>
        <source>bad gateway</source>
        <translation>网关错误</translation>
    </message>
    <message>
        <source>bad request</source>
        <translation>错误请求</translation>
    </message>
    <message>
        <source>client error</source>
        <translation>客户端错误</translation>
    </message>
    <message>
        <source>conflict</source>
        <translation>冲突</translation>
    </message>
    <message>
        <source>created</source>
        <translation>已创建</translation>
    </message>
    <message>
        <source>expectation failed</source>
        <translation>预期失败</translation>
    </message>
    <message>
        <source>forbidden</source>
        <translation>已禁止</translation>
    </message>
    <message>
        <source>found</source>
        <translation>已找到</translation>
    </message>
    <message>
        <source>gateway timed out</source>
        <translation>网关超时</translation>
    </message>
    <message>
        <source>informational</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>internal server error</source>
        <translation>服务器内部错误</translation>
    </message>
    <message>
        <source>it has no folder “%1”, which items belong to.</source>
        <translation>其中没有项目所属的文件夹“%1”。</translation>
    </message>
    <message>
        <source>it holds no entities.</source>
        <translation>其中没有条目。</translation>
    </message>
    <message>
        <source>its records are not in a dictionary.</source>
        <translation>其记录不在字典中。</translation>
    </message>
    <message>
        <source>length required</source>
        <translation>需要长度</translation>
    </message>
    <message>
        <source>method not allowed</source>
        <translation>不允许的方法</translation>
    </message>
    <message>
        <source>moved permanently</source>
        <translation>已永久移动</translation>
    </message>
    <message>
        <source>no content</source>
        <translation>无内容</translation>
    </message>
    <message>
        <source>no error</source>
        <translation>无错误</translation>
    </message>
    <message>
        <source>no longer exists</source>
        <translation>已不存在</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>未找到</translation>
    </message>
    <message>
        <source>not modified</source>
        <translation>未修改</translation>
    </message>
    <message>
        <source>payment required</source>
        <translation>需要付款</translation>
    </message>
    <message>
        <source>precondition failed</source>
        <translation>先决条件失败</translation>
    </message>
    <message>
        <source>proxy authentication required</source>
        <translation>需要代理认证</translation>
    </message>
    <message>
        <source>redirected</source>
        <translation>已重定向</translation>
    </message>
    <message>
        <source>request timed out</source>
        <translation>请求超时</translation>
    </message>
    <message>
        <source>request too large</source>
        <translation>请求过大</translation>
    </message>
    <message>
        <source>requested URL too long</source>
        <translation>请求的 URL 过长</translation>
    </message>
    <message>
        <source>requested range not satisfiable</source>
        <translation>无法满足请求的范围</translation>
    </message>
    <message>
        <source>server error</source>
        <translation>服务器错误</translation>
    </message>
    <message>
        <source>service unavailable</source>
        <translation>服务不可用</translation>
    </message>
    <message>
        <source>success</source>
        <translation>成功</translation>
    </message>
    <message>
        <source>too many requests</source>
        <translation>请求过多</translation>
    </message>
    <message>
        <source>unacceptable</source>
        <translation>不可接受</translation>
    </message>
    <message>
        <source>unauthorized</source>
        <translation>未授权</translation>
    </message>
    <message>
        <source>unimplemented</source>
        <translation>未实现</translation>
    </message>
    <message>
        <source>unsupported media type</source>
        <translation>不支持的媒体类型</translation>
    </message>
    <message>
        <source>unsupported version</source>
        <translation>不支持的版本</translation>
    </message>
    <message>
        <source>“%1” cannot be said to %2.</source>
        <translation>无法将“%1”传达给 %2。</translation>
    </message>
    <message>
        <source>“%1” cannot be taken twice.</source>
        <translation>“%1”不能重复导入。</translation>
    </message>
    <message>
        <source>“%1” could not be imported: %2</source>
        <translation>无法导入“%1”：%2</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <translation>无法读取“%1”：%2。</translation>
    </message>
    <message>
        <source>“%1” could not be written: %2.</source>
        <translation>无法写入“%1”：%2。</translation>
    </message>
    <message>
        <source>“%1” holds no catalogue that this version reads.</source>
        <translation>“%1”中没有此版本可读取的目录。</translation>
    </message>
    <message>
        <source>“%1” is gone: its files were removed before the import was finished.</source>
        <translation>“%1”已不存在：其文件在导入完成前被移除。</translation>
    </message>
    <message>
        <source>“%1” is not UTF-8 text.</source>
        <translation>“%1”不是 UTF-8 文本。</translation>
    </message>
    <message>
        <source>“%1” is not a folder's record.</source>
        <translation>“%1”不是文件夹的记录。</translation>
    </message>
    <message>
        <source>“%1” is not an alias.</source>
        <translation>“%1”不是替身。</translation>
    </message>
    <message>
        <source>“%1” is not an import manifest.</source>
        <translation>“%1”不是导入清单。</translation>
    </message>
    <message>
        <source>“%1” is not an item's record.</source>
        <translation>“%1”不是项目的记录。</translation>
    </message>
    <message>
        <source>“%1” is not the name of a file in “%2”.</source>
        <translation>“%1”不是“%2”中文件的名称。</translation>
    </message>
</context>
</TS>

// SPDX-License-Identifier: MIT
#include "convert/ScratchFolder.h"

#include "platform/files/FileManager.h"

ScratchFolder::ScratchFolder(QString path)
    : m_path(std::move(path))
{
}

ScratchFolder::~ScratchFolder() { remove(); }

bool ScratchFolder::create(platform::Error* error)
{
    m_exists = platform::createDirectory(m_path, platform::IntermediateFolders::Require, error);
    return m_exists;
}

bool ScratchFolder::remove(platform::Error* error)
{
    if (!m_exists)
        return true;
    m_exists = false;
    return platform::removeItem(m_path, error);
}

#include "RecordingPresenter.h"

int RecordingPresenter::present(ostrak::Alert &alert) {
  presented.append(alert);
  if (m_whileShown) m_whileShown(alert);
  return m_answers.isEmpty() ? ostrak::firstButton : m_answers.takeFirst();
}
